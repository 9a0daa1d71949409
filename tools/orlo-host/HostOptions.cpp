// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HostOptions.h"

#include "HostError.h"

#include "plugin_core/text/NumberText.h"

namespace mk::orlo::host
{
namespace
{
constexpr double longestRunSeconds = 1.0e6;
constexpr int largestSide = 10000;

/** Hands out the arguments one by one. */
class ArgumentReader
{
public:
    explicit ArgumentReader (const juce::StringArray& argumentsToRead) : arguments (argumentsToRead) {}

    [[nodiscard]] bool isAtEnd() const noexcept { return index >= arguments.size(); }
    [[nodiscard]] juce::String next() { return arguments[index++]; }

    /** The argument that follows an option. Throws HostError if there is none. */
    [[nodiscard]] juce::String nextValueOf (const juce::String& option)
    {
        if (isAtEnd())
            throw HostError (option + " needs a value");

        return next();
    }

private:
    const juce::StringArray& arguments;
    int index = 0;
};

[[nodiscard]] juce::File toFile (const juce::String& path)
{
    if (path.isEmpty())
        throw HostError ("a file's name is empty");

    return juce::File::getCurrentWorkingDirectory().getChildFile (path);
}

[[nodiscard]] ParameterSetting toSetting (const juce::String& text)
{
    const auto id = text.upToFirstOccurrenceOf ("=", false, false).trim();

    if (id.isEmpty() || ! text.containsChar ('='))
        throw HostError ("--set wants ID=VALUE, not '" + text + "'");

    return { id, text.fromFirstOccurrenceOf ("=", false, false).trim() };
}

[[nodiscard]] double toSeconds (const juce::String& option, const juce::String& text)
{
    const auto seconds = pluginCore::parseQuantity (text);

    if (! seconds || *seconds < 0.0 || *seconds > longestRunSeconds)
        throw HostError (option + " wants a number from 0 up, not '" + text + "'");

    return *seconds;
}

[[nodiscard]] ExploredRange toRange (const juce::String& text)
{
    const auto start = pluginCore::parseQuantity (text.upToFirstOccurrenceOf (",", false, false));
    const auto length = pluginCore::parseQuantity (text.fromFirstOccurrenceOf (",", false, false));

    if (! start || ! length || *start > 0.0 || *length <= 0.0 || *length > longestRunSeconds)
        throw HostError ("--explore wants START,LENGTH in seconds, with START up to 0, not '" + text + "'");

    return { *start, *length };
}

[[nodiscard]] juce::Rectangle<int> toSize (const juce::String& text)
{
    const auto side = [&text] (const juce::String& digits)
    {
        const auto value = digits.containsOnly ("0123456789") && digits.length() <= 5 ? digits.getIntValue() : 0;

        if (value < 1 || value > largestSide)
            throw HostError ("--size wants WIDTHxHEIGHT in pixels, not '" + text + "'");

        return value;
    };

    return { side (text.upToFirstOccurrenceOf ("x", false, false)),
             side (text.fromFirstOccurrenceOf ("x", false, false)) };
}

void checkThatAllGoesTogether (const HostOptions& options)
{
    if (options.screenshot && ! options.seconds)
        throw HostError ("--screenshot needs --seconds, as the picture is taken at their end");

    if (options.screenshot && ! options.showWindow)
        throw HostError ("--screenshot and --no-window exclude each other");

    if (options.explore && ! options.freezeAt)
        throw HostError ("--explore needs --freeze-at, as only a frozen picture can be explored");

    if (options.editorSize && ! options.showWindow)
        throw HostError ("--size and --no-window exclude each other");
}
} // namespace

HostOptions parseHostOptions (const juce::StringArray& arguments)
{
    HostOptions options;
    ArgumentReader reader (arguments);

    while (! reader.isAtEnd())
    {
        const auto argument = reader.next();

        if (argument == "--help" || argument == "-h")
            options.showHelp = true;
        else if (argument == "--no-window")
            options.showWindow = false;
        else if (argument == "--no-sound")
            options.useSoundCard = false;
        else if (argument == "--plugin")
            options.plugin = toFile (reader.nextValueOf (argument));
        else if (argument == "--set")
            options.settings.push_back (toSetting (reader.nextValueOf (argument)));
        else if (argument == "--seconds")
            options.seconds = toSeconds (argument, reader.nextValueOf (argument));
        else if (argument == "--freeze-at")
            options.freezeAt = toSeconds (argument, reader.nextValueOf (argument));
        else if (argument == "--explore")
            options.explore = toRange (reader.nextValueOf (argument));
        else if (argument == "--size")
            options.editorSize = toSize (reader.nextValueOf (argument));
        else if (argument == "--screenshot")
            options.screenshot = toFile (reader.nextValueOf (argument));
        else if (argument == "--state-in")
            options.stateIn = toFile (reader.nextValueOf (argument));
        else if (argument == "--preset")
            options.preset = toFile (reader.nextValueOf (argument));
        else if (argument == "--state-out")
            options.stateOut = toFile (reader.nextValueOf (argument));
        else if (argument.startsWith ("-"))
            throw HostError ("unknown option '" + argument + "' (see --help)");
        else if (options.audio)
            throw HostError ("one audio file at a time, '" + argument + "' is the second");
        else
            options.audio = toFile (argument);
    }

    if (! options.showHelp)
        checkThatAllGoesTogether (options);

    return options;
}

juce::String getHelpText()
{
    return R"(orlo-host: plays audio through the plug-in in real time and shows its editor

usage: orlo-host [OPTION...] [AUDIO FILE]

Without an audio file a demo signal of 20 s plays: chords, chirps, clicks, vibrato and noise. The audio
repeats until the window is closed or the time given by --seconds is over. Without a sound card the audio
still runs through the plug-in in real time, but is not heard.

  --plugin PATH          the VST3 bundle to load (default: the one of this build)
  --preset FILE          loads a preset file of the plug-in, before --set is applied
  --set ID=VALUE         sets a parameter by its id and text, --set colourMap=viridis; may be repeated
  --size WIDTHxHEIGHT    the editor's size in pixels
  --seconds N            quits after N seconds
  --freeze-at N          freezes the picture after N seconds
  --explore START,LENGTH looks at a part of the frozen sound: START in seconds from the freeze, as -2.5
  --screenshot FILE.png  saves the editor as it is on the screen when the time is over
  --state-in FILE        loads the plug-in's state from a file, before --set is applied
  --state-out FILE       saves the plug-in's state on quitting
  --no-window            plays without the editor
  --no-sound             does not use the sound card
  --help                 prints this
)";
}

} // namespace mk::orlo::host
