// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/CommandLine.h"

#include "orlo/parameters/Params.h"
#include "tools/orlo-render/RenderError.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;
using testing::HasSubstr;

[[nodiscard]] std::string complaintAbout (const juce::StringArray& arguments)
{
    try
    {
        juce::ignoreUnused (parseCommandLine (arguments));
        return {};
    }
    catch (const RenderError& error)
    {
        EXPECT_EQ (error.getExitCode(), RenderError::usage);
        return error.what();
    }
}

[[nodiscard]] juce::File inWorkingDirectory (const char* name)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (name);
}
} // namespace

TEST (CommandLine, NeedsOnlyTwoFiles)
{
    const auto command = parseCommandLine ({ "in.wav", "out.png" });
    EXPECT_EQ (command.action, CommandLine::Action::render);
    EXPECT_EQ (command.options.input, inWorkingDirectory ("in.wav"));
    EXPECT_EQ (command.options.picture, inWorkingDirectory ("out.png"));
    EXPECT_EQ (command.options.levels, juce::File());
    EXPECT_EQ (command.options.height, 1024);
    EXPECT_EQ (command.options.width, 0);
    EXPECT_EQ (command.options.startSeconds, 0.0);
    EXPECT_FALSE (command.options.durationSeconds);
    EXPECT_EQ (command.options.numThreads, 0);
}

TEST (CommandLine, TakesTheSource)
{
    const auto sourceOf = [] (const char* text) {
        return parseCommandLine ({ "in.wav", "out.png", "--source", text }).options.source;
    };

    EXPECT_EQ (parseCommandLine ({ "in.wav", "out.png" }).options.source, (SourceChoice { Source::mean, -1 }));
    EXPECT_EQ (sourceOf ("mean"), (SourceChoice { Source::mean, -1 }));
    EXPECT_EQ (sourceOf ("Side"), (SourceChoice { Source::side, -1 }));
    EXPECT_EQ (sourceOf ("loudest"), (SourceChoice { Source::loudest, -1 }));
    EXPECT_EQ (sourceOf ("6"), (SourceChoice { Source::mean, 5 }));

    for (const auto* const text : { "0", "-1", "centre", "" })
        EXPECT_THAT (complaintAbout ({ "in.wav", "out.png", juce::String ("--source=") + text }),
                     HasSubstr ("is neither a channel's number nor one of Mean, Left, Right, Mid, Side, Loudest"));
}

TEST (CommandLine, TakesThePoints)
{
    const auto pointsOf = [] (const char* text) {
        return parseCommandLine ({ "in.wav", "out.png", "--points-kept", text }).options.pointsKept;
    };

    EXPECT_EQ (parseCommandLine ({ "in.wav", "out.png" }).options.pointsKept, PointsKept::all);
    EXPECT_EQ (pointsOf ("all"), PointsKept::all);
    EXPECT_EQ (pointsOf ("lines"), PointsKept::lines);
    EXPECT_EQ (pointsOf ("Clicks"), PointsKept::clicks);
    EXPECT_EQ (pointsOf ("both"), PointsKept::linesAndClicks);
    EXPECT_THAT (complaintAbout ({ "in.wav", "out.png", "--points-kept", "some" }),
                 HasSubstr ("--points-kept: 'some' is not one of all, lines, clicks, both"));
}

TEST (CommandLine, TakesTheNumberOfThreads)
{
    EXPECT_EQ (parseCommandLine ({ "in.wav", "out.png", "--threads", "3" }).options.numThreads, 3);
    EXPECT_EQ (parseCommandLine ({ "in.wav", "--threads=256", "out.png" }).options.numThreads, 256);
}

TEST (CommandLine, AllowsOptionsAnywhereAndValuesInBothForms)
{
    const auto command = parseCommandLine ({ "--height",
                                             "300",
                                             "in.wav",
                                             "--width=200",
                                             "--floor",
                                             "-90",
                                             "out.png",
                                             "--start=1.5",
                                             "--duration",
                                             "2s",
                                             "--levels",
                                             "l.npy",
                                             "--mode=Classic" });

    const auto& options = command.options;
    EXPECT_EQ (options.height, 300);
    EXPECT_EQ (options.width, 200);
    EXPECT_EQ (options.startSeconds, 1.5);
    EXPECT_EQ (options.durationSeconds, 2.0);
    EXPECT_EQ (options.levels, inWorkingDirectory ("l.npy"));
    EXPECT_NEAR (options.parameters.get (Params::id::floor), -90.0f, 1.0e-4f);
    EXPECT_EQ (options.parameters.get (Params::id::mode), 0.0f);
}

TEST (CommandLine, UsesTheLastValueOfARepeatedOption)
{
    const auto command = parseCommandLine ({ "--minFreq=200Hz", "--minFreq=10", "--height=5", "--height=6", "i", "o" });
    EXPECT_EQ (command.options.height, 6);
    EXPECT_NEAR (command.options.parameters.getFrequencyFraction ("minFreq", 44100.0), 0.1f, 1.0e-5f);
}

TEST (CommandLine, TakesAllArgumentsAfterTwoDashesAsFiles)
{
    const auto command = parseCommandLine ({ "--", "--in.wav", "--help" });
    EXPECT_EQ (command.options.input, inWorkingDirectory ("--in.wav"));
    EXPECT_EQ (command.options.picture, inWorkingDirectory ("--help"));
}

TEST (CommandLine, TakesATildeAsPartOfAName)
{
    EXPECT_EQ (parseCommandLine ({ "~in.wav", "out.png" }).options.input.getFullPathName(),
               juce::File::getCurrentWorkingDirectory().getFullPathName() + "/~in.wav");
}

TEST (CommandLine, NeedsNoFilesForHelpAndVersion)
{
    EXPECT_EQ (parseCommandLine ({ "--help" }).action, CommandLine::Action::showHelp);
    EXPECT_EQ (parseCommandLine ({ "in.wav", "-h" }).action, CommandLine::Action::showHelp);
    EXPECT_EQ (parseCommandLine ({ "--version" }).action, CommandLine::Action::showVersion);
}

TEST (CommandLine, RefusesUnknownOptionsAndBadValues)
{
    EXPECT_THAT (complaintAbout ({}), HasSubstr ("are needed"));
    EXPECT_THAT (complaintAbout ({ "in.wav" }), HasSubstr ("are needed"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "c" }), HasSubstr ("one file too many: 'c'"));
    EXPECT_THAT (complaintAbout ({ "a", "" }), HasSubstr ("empty"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--Mode", "Classic" }), HasSubstr ("unknown option '--Mode'"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "-mode", "Classic" }), HasSubstr ("unknown option '-mode'"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--mode" }), HasSubstr ("--mode needs a value"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--width", "0" }), HasSubstr ("from 1 to 32767"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--height", "32768" }), HasSubstr ("from 1 to 32767"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--height", "tall" }), HasSubstr ("'tall' is not a whole number"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads", "0" }),
                 HasSubstr ("'0' is not a whole number from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads=257" }), HasSubstr ("from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads=-2" }), HasSubstr ("from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads=1.5" }), HasSubstr ("from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads=all" }), HasSubstr ("from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads=" }), HasSubstr ("from 1 to 256"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--threads" }), HasSubstr ("--threads needs a value"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--start", "-1" }), HasSubstr ("is not a number of seconds"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--duration", "0" }), HasSubstr ("longer than nothing"));
    EXPECT_THAT (complaintAbout ({ "a", "b", "--levels=" }), HasSubstr ("empty"));
}

TEST (CommandLine, RefusesTheSameFileForTwoPurposes)
{
    EXPECT_THAT (complaintAbout ({ "a.wav", "a.wav" }), HasSubstr ("both read and written"));
    EXPECT_THAT (complaintAbout ({ "a.wav", "b", "--levels", "./a.wav" }), HasSubstr ("both read and written"));
    EXPECT_THAT (complaintAbout ({ "a.wav", "b", "--levels", "b" }), HasSubstr ("the same file"));
}

TEST (CommandLine, TheHelpNamesEveryOption)
{
    const auto help = getHelpText().toStdString();

    for (const auto* const option : { "--height",   "--width",      "--start",    "--duration", "--levels",
                                      "--threads",  "--help",       "--version",  "--mode",     "--fftSize",
                                      "--hiDPI",    "--freeze",     "--drawMode", "--floor",    "--ceiling",
                                      "--minFreq",  "--maxFreq",    "--speed",    "--ruler",    "--freqScale",
                                      "--keyboard", "--autoFreeze", "--internal", "--colourMap" })
        EXPECT_THAT (help, HasSubstr (option));

    EXPECT_THAT (help, HasSubstr ("change\nnothing in a still picture"));
}

} // namespace mk::orlo::test
