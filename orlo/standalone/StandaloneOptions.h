// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::orlo
{

/** What the command line of the standalone program asks for. */
struct StandaloneOptions
{
    bool showHelp = false;
    bool showVersion = false;
    std::optional<juce::File> audio; /**< To be played instead of the sound input. */
    juce::String error;              /**< Not empty if the command line cannot be understood. */
};

/** Reads the arguments after the program's name. Any thread. */
[[nodiscard]] StandaloneOptions parseStandaloneOptions (const juce::StringArray& arguments);

/** What --help prints. */
[[nodiscard]] juce::String getStandaloneHelp();

} // namespace mk::orlo
