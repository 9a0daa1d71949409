// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StandaloneOptions.h"

namespace mk::orlo
{

StandaloneOptions parseStandaloneOptions (const juce::StringArray& arguments)
{
    StandaloneOptions options;
    auto onlyFiles = false;

    for (const auto& argument : arguments)
    {
        if (! onlyFiles && argument == "--")
            onlyFiles = true;
        else if (! onlyFiles && (argument == "--help" || argument == "-h"))
            options.showHelp = true;
        else if (! onlyFiles && argument == "--version")
            options.showVersion = true;
        else if (! onlyFiles && argument.startsWith ("-"))
            options.error = "unknown option '" + argument + "' (see --help)";
        else if (argument.isEmpty())
            options.error = "a file's name is empty";
        else if (options.audio)
            options.error = "one audio file at a time, '" + argument + "' is the second";
        else
            options.audio = juce::File::getCurrentWorkingDirectory().getChildFile (argument);
    }

    return options;
}

juce::String getStandaloneHelp()
{
    return R"(orlo: shows the spectrogram of a sound in real time

usage: orlo [OPTION...] [AUDIO FILE]

Shows what comes in at the system's sound input, which is not played back. An audio file (WAV, AIFF, FLAC, Ogg
Vorbis) is played and shown instead, and repeats until the window is closed. "Options" at the top of the window
chooses the sound devices.

  --help       prints this
  --version    prints the version
)";
}

} // namespace mk::orlo
