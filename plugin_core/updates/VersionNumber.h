// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** A program's version. Any thread. */
struct VersionNumber
{
    int major = 0;
    int minor = 0;
    int patch = 0;
    int beta = 0; /**< the number of the beta; finalRelease if it is not a beta */

    /** Ranks a final release above any beta of the same version. */
    static constexpr int finalRelease = 99;

    /** Parses "1.2.1" or "1.2.1beta3". Missing or invalid parts are 0, further parts are ignored. */
    [[nodiscard]] static VersionNumber parse (const juce::String& text);

    /** Whether the text names a beta. */
    [[nodiscard]] static bool isBeta (const juce::String& text);

    /** The number by which versions are compared. The weights are part of the vendor's numbering: minor
        number 10 equals the next major number. */
    [[nodiscard]] juce::int64 getRank() const noexcept;

    [[nodiscard]] bool operator== (const VersionNumber&) const = default;
};

} // namespace mk::pluginCore
