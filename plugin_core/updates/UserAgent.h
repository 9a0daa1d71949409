// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The User-Agent header's value, such as "Orlo/1.2.1-Ableton Live 12 (Mac OSX 14.5 arm)". Blanks in the version
    are removed, as are control characters anywhere, since a line break would start another header; a host
    without a description is "Unknown". Any thread. */
[[nodiscard]] juce::String makeUserAgent (const juce::String& product,
                                          const juce::String& version,
                                          const juce::String& host,
                                          const juce::String& operatingSystem,
                                          bool isArm);

/** The same for the host and the system that this process runs in. */
[[nodiscard]] juce::String makeUserAgent (const juce::String& product, const juce::String& version);

} // namespace mk::pluginCore
