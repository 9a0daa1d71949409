// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Who asks, as the site is told: "Orlo/1.2.1-Ableton Live 12 (Mac OSX 14.5 arm)". Blanks in the version and
    control characters anywhere, which would make a header of their own, are left out; a host without a
    description is "Unknown". Any thread. */
[[nodiscard]] juce::String makeUserAgent (const juce::String& product,
                                          const juce::String& version,
                                          const juce::String& host,
                                          const juce::String& operatingSystem,
                                          bool isArm);

/** The same, with the host and the system that this program runs in. */
[[nodiscard]] juce::String makeUserAgent (const juce::String& product, const juce::String& version);

} // namespace mk::pluginCore
