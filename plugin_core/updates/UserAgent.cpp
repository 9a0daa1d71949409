// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UserAgent.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{
namespace
{
#if JUCE_ARM
constexpr auto runsOnArm = true;
#else
constexpr auto runsOnArm = false;
#endif

[[nodiscard]] juce::String withoutControlCharacters (const juce::String& text)
{
    juce::String clean;

    for (auto next = text.getCharPointer(); ! next.isEmpty(); ++next)
        if (*next >= 0x20 && *next != 0x7f)
            clean += *next;

    return clean;
}
} // namespace

juce::String makeUserAgent (const juce::String& product,
                            const juce::String& version,
                            const juce::String& host,
                            const juce::String& operatingSystem,
                            bool isArm)
{
    juce::String agent;
    agent << product << "/" << version.removeCharacters (" \t\r\n") << "-" << (host.isEmpty() ? "Unknown" : host)
          << " (" << operatingSystem << (isArm ? " arm" : "") << ")";
    return withoutControlCharacters (agent);
}

juce::String makeUserAgent (const juce::String& product, const juce::String& version)
{
    return makeUserAgent (product,
                          version,
                          juce::PluginHostType().getHostDescription(),
                          juce::SystemStats::getOperatingSystemName(),
                          runsOnArm);
}

} // namespace mk::pluginCore
