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
    int beta = 0; /**< counts the betas; finalRelease for a version that is none */

    /** Above any beta of the same version. */
    static constexpr int finalRelease = 99;

    /** "1.2.1" or "1.2.1beta3". Missing or unreadable parts are 0, further ones are ignored. */
    [[nodiscard]] static VersionNumber parse (const juce::String& text);

    /** Whether the text names a beta. */
    [[nodiscard]] static bool isBeta (const juce::String& text);

    /** What versions are compared by. The weights are part of the vendor's numbering: the minor number 10
        reaches the next major one. */
    [[nodiscard]] juce::int64 getRank() const noexcept;

    [[nodiscard]] bool operator== (const VersionNumber&) const = default;
};

} // namespace mk::pluginCore
