// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CommandLine.h"

#include "RenderError.h"
#include "plugin_core/text/NumberText.h"

namespace mk::orlo::render
{
namespace
{
[[nodiscard]] RenderError usageError (const juce::String& line) { return RenderError (line, RenderError::usage); }

/** Reads the arguments in order. An option's value is the next argument or the text after an equals sign. */
class Parser
{
public:
    explicit Parser (const juce::StringArray& all) : arguments (all) {}

    [[nodiscard]] CommandLine parse()
    {
        while (next < arguments.size())
        {
            const auto argument = arguments[next++];

            if (argument == "--")
            {
                while (next < arguments.size())
                    addFile (arguments[next++]);
            }
            else if (argument.startsWith ("-"))
            {
                takeOption (argument);
            }
            else
            {
                addFile (argument);
            }

            if (line.action != CommandLine::Action::render)
                return line.action == CommandLine::Action::showHelp
                           ? CommandLine { CommandLine::Action::showHelp, {} }
                           : CommandLine { CommandLine::Action::showVersion, {} };
        }

        checkFiles();
        return std::move (line);
    }

private:
    void takeOption (const juce::String& argument)
    {
        if (argument == "--help" || argument == "-h")
            line.action = CommandLine::Action::showHelp;
        else if (argument == "--version")
            line.action = CommandLine::Action::showVersion;
        else if (argument == "--exact")
            line.options.exact = true;
        else
            takeValue (argument.upToFirstOccurrenceOf ("=", false, false), argument);
    }

    void takeValue (const juce::String& option, const juce::String& argument)
    {
        auto& options = line.options;
        const auto id = option.startsWith ("--") ? option.substring (2) : juce::String();

        if (options.parameters.contains (id))
            options.parameters.set (id, valueOf (option, argument));
        else if (option == "--points-kept")
            options.pointsKept = parsePoints (valueOf (option, argument));
        else if (option == "--source")
            options.source = parseSource (valueOf (option, argument));
        else if (option == "--height")
            options.height = wholeNumberOf (option, argument, largestSide);
        else if (option == "--width")
            options.width = wholeNumberOf (option, argument, largestSide);
        else if (option == "--start")
            options.startSeconds = secondsOf (option, argument);
        else if (option == "--duration")
            options.durationSeconds = durationOf (option, argument);
        else if (option == "--threads")
            options.numThreads = wholeNumberOf (option, argument, mostThreads);
        else if (option == "--levels")
            options.levels = fileOf (valueOf (option, argument));
        else
            throw usageError ("unknown option '" + option + "' (see --help)");
    }

    [[nodiscard]] static PointsKept parsePoints (const juce::String& text)
    {
        const juce::StringArray names { "all", "lines", "clicks", "both" }; // in the order of PointsKept

        if (const auto index = names.indexOf (text, true); index >= 0)
            return PointsKept (index);

        throw usageError ("--points-kept: '" + text + "' is not one of " + names.joinIntoString (", "));
    }

    [[nodiscard]] juce::String valueOf (const juce::String& option, const juce::String& argument)
    {
        if (argument.length() > option.length())
            return argument.substring (option.length() + 1);

        if (next >= arguments.size())
            throw usageError (option + " needs a value");

        return arguments[next++];
    }

    [[nodiscard]] int wholeNumberOf (const juce::String& option, const juce::String& argument, int largest)
    {
        const auto text = valueOf (option, argument);

        if (const auto number = pluginCore::parseWholeNumber (text, 1, largest))
            return *number;

        throw usageError (option + ": '" + text + "' is not a whole number from 1 to " + juce::String (largest));
    }

    [[nodiscard]] double secondsOf (const juce::String& option, const juce::String& argument)
    {
        const auto text = valueOf (option, argument);
        const auto seconds = pluginCore::parseQuantity (text, "s");

        if (! seconds || *seconds < 0.0)
            throw usageError (option + ": '" + text + "' is not a number of seconds");

        return *seconds;
    }

    [[nodiscard]] double durationOf (const juce::String& option, const juce::String& argument)
    {
        const auto seconds = secondsOf (option, argument);

        if (! (seconds > 0.0))
            throw usageError (option + ": must be longer than nothing");

        return seconds;
    }

    [[nodiscard]] static juce::File fileOf (const juce::String& path)
    {
        if (path.isEmpty())
            throw usageError ("a file name is empty");

        // The shell has expanded a tilde that means a home folder; JUCE must not expand one that is left.
        return juce::File::getCurrentWorkingDirectory().getChildFile (path.startsWithChar ('~') ? "./" + path : path);
    }

    void addFile (const juce::String& path)
    {
        if (++numFiles > 2)
            throw usageError ("one file too many: '" + path + "' (see --help)");

        (numFiles == 1 ? line.options.input : line.options.picture) = fileOf (path);
    }

    void checkFiles() const
    {
        const auto& options = line.options;

        if (numFiles < 2)
            throw usageError ("an audio file and the picture to make of it are needed (see --help)");

        if (options.input == options.picture || options.input == options.levels)
            throw usageError ("'" + options.input.getFileName() + "' is both read and written");

        if (options.exact && options.width < 1)
            throw usageError ("--exact needs --width");

        if (options.picture == options.levels)
            throw usageError ("the picture and the levels go to the same file");
    }

    const juce::StringArray& arguments;
    int next = 0;
    int numFiles = 0;
    CommandLine line;
};
} // namespace

CommandLine parseCommandLine (const juce::StringArray& arguments) { return Parser (arguments).parse(); }

juce::String getHelpText()
{
    const juce::String usage = R"(Usage: orlo-render IN OUT.png [OPTIONS]

Turns an audio file (WAV, AIFF, FLAC, Ogg Vorbis) into the picture that Orlo would show of it.

Picture:
  --height N: rows, in pixels (default 1024)
  --width N: pixels; when there are more columns than that, neighbours are merged by maximum
      (default: as many as there are columns)
  --exact: the picture is as wide as --width says, and each pixel shows exactly its share of the time,
      with hops as short as that needs
  --start SECONDS: where in the file the picture starts (default 0)
  --duration SECONDS: how much of the file it shows (default: up to the end)
  --source mean, left, right, mid, side, loudest, or the number of a channel: what of the file is shown (default mean)
  --points-kept all, lines, clicks, both: which points Enhanced draws (default all)
  --levels FILE.npy: also write the columns' levels, 0 to 1, as a float32 NumPy array of rows by columns
  --threads N: how many threads work on the picture (default: one for each processor)
  --help, --version

Parameters of the plug-in, with the texts that it shows:
)";

    const juce::String notes = R"(
hiDPI 2x halves the time that a column stands for, as on a display with double resolution; the rows are
those of --height. freeze, drawMode, ruler, keyboard, autoFreeze and internal are accepted and change
nothing in a still picture.

The left edge of the picture is the start, its right edge the end: the
delay that a live picture has is removed, and after the end of the file the analysis gets silence until the
last point is drawn. At the edges of a section it gets the audio around the section.
)";

    return usage + "  " + ParameterValues().describe().joinIntoString ("\n  ") + "\n" + notes;
}

} // namespace mk::orlo::render
