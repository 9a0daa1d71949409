// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/HostOptions.h"
#include "tools/orlo-host/HostError.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace host;

[[nodiscard]] juce::File inWorkingDirectory (const juce::String& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (path);
}

/** The error message for a command line. */
[[nodiscard]] juce::String errorFor (const juce::StringArray& arguments)
{
    try
    {
        static_cast<void> (parseHostOptions (arguments));
        return "no error";
    }
    catch (const HostError& error)
    {
        return error.what();
    }
}

TEST (HostOptions, AreAWindowWithTheDemoSignalByDefault)
{
    const auto options = parseHostOptions ({});

    EXPECT_FALSE (options.audio);
    EXPECT_FALSE (options.plugin);
    EXPECT_TRUE (options.settings.empty());
    EXPECT_FALSE (options.seconds);
    EXPECT_FALSE (options.screenshot);
    EXPECT_FALSE (options.stateIn);
    EXPECT_FALSE (options.stateOut);
    EXPECT_FALSE (options.preset);
    EXPECT_FALSE (options.editorSize);
    EXPECT_TRUE (options.showWindow);
    EXPECT_TRUE (options.useSoundCard);
    EXPECT_FALSE (options.showHelp);
}

TEST (HostOptions, HoldEverythingThatWasGiven)
{
    const auto options = parseHostOptions (
        { "--plugin",    "Other.vst3", "--set",    "floor=-90",     "--set",      " a b = c = d ", "--size",
          "640x360",     "--seconds",  "2.5",      "--screenshot",  "shot.png",   "--state-in",    "in",
          "--state-out", "/out",       "--preset", "mine.mkpreset", "--no-sound", "song.flac" });

    EXPECT_EQ (options.plugin, inWorkingDirectory ("Other.vst3"));
    EXPECT_EQ (options.settings, (std::vector<ParameterSetting> { { "floor", "-90" }, { "a b", "c = d" } }));
    EXPECT_EQ (options.editorSize, (juce::Rectangle { 640, 360 }));
    EXPECT_EQ (options.seconds, 2.5);
    EXPECT_EQ (options.screenshot, inWorkingDirectory ("shot.png"));
    EXPECT_EQ (options.stateIn, inWorkingDirectory ("in"));
    EXPECT_EQ (options.stateOut, juce::File ("/out"));
    EXPECT_EQ (options.preset, inWorkingDirectory ("mine.mkpreset"));
    EXPECT_EQ (options.audio, inWorkingDirectory ("song.flac"));
    EXPECT_FALSE (options.useSoundCard);
    EXPECT_TRUE (options.showWindow);
}

TEST (HostOptions, TakeTheLastOfTwoValues)
{
    EXPECT_EQ (parseHostOptions ({ "--seconds", "1", "--seconds", "2" }).seconds, 2.0);
}

TEST (HostOptions, CanBeAskedForHelpWhateverElseIsThere)
{
    EXPECT_TRUE (parseHostOptions ({ "--screenshot", "x.png", "--help" }).showHelp);
    EXPECT_TRUE (parseHostOptions ({ "-h" }).showHelp);
}

TEST (HostOptions, WithoutTheirValueAreAnError)
{
    for (const auto* const option :
         { "--plugin", "--set", "--seconds", "--size", "--screenshot", "--state-in", "--state-out", "--preset" })
        EXPECT_EQ (errorFor ({ option }), juce::String (option) + " needs a value");
}

TEST (HostOptions, ThatAreUnknownAreAnError)
{
    EXPECT_EQ (errorFor ({ "--loud" }), "unknown option '--loud' (see --help)");
    EXPECT_EQ (errorFor ({ "-x" }), "unknown option '-x' (see --help)");
}

TEST (HostOptions, WithBadValuesAreAnError)
{
    for (const auto* const text : { "floor", "=3", "" })
        EXPECT_EQ (errorFor ({ "--set", text }), "--set wants ID=VALUE, not '" + juce::String (text) + "'");

    for (const auto* const text : { "-1", "soon", "", "1s", "nan", "inf", "1e300" })
        EXPECT_EQ (errorFor ({ "--seconds", text }),
                   "--seconds wants a number from 0 up, not '" + juce::String (text) + "'");

    for (const auto* const text : { "640", "x", "640x", "x360", "0x360", "640x-1", "640x360x2", "999999x9", "" })
        EXPECT_EQ (errorFor ({ "--size", text }),
                   "--size wants WIDTHxHEIGHT in pixels, not '" + juce::String (text) + "'");

    EXPECT_EQ (errorFor ({ "--plugin", "" }), "a file's name is empty");
}

TEST (HostOptions, ThatExcludeEachOtherAreAnError)
{
    EXPECT_EQ (errorFor ({ "--screenshot", "x.png" }),
               "--screenshot needs --seconds, as the picture is taken at their end");
    EXPECT_EQ (errorFor ({ "--screenshot", "x.png", "--seconds", "1", "--no-window" }),
               "--screenshot and --no-window exclude each other");
    EXPECT_EQ (errorFor ({ "--size", "10x10", "--no-window" }), "--size and --no-window exclude each other");
    EXPECT_EQ (errorFor ({ "a.wav", "b.wav" }), "one audio file at a time, 'b.wav' is the second");
}
TEST (HostOptions, FreezeAndExploreAPartOfTheSound)
{
    const auto options = parseHostOptions ({ "--freeze-at", "4.5", "--explore", "-2,0.05" });
    EXPECT_EQ (options.freezeAt, 4.5);
    ASSERT_TRUE (options.explore);
    EXPECT_EQ (options.explore->start, -2.0);
    EXPECT_EQ (options.explore->length, 0.05);

    EXPECT_TRUE (errorFor ({ "--explore", "-2,1" }).contains ("needs --freeze-at"));

    for (const auto* const range : { "", "-2", "-2,", "1,1", "-2,0", "-2,-1", "x,1" })
        EXPECT_TRUE (errorFor ({ "--freeze-at", "4", "--explore", range }).contains ("wants START,LENGTH")) << range;
}

} // namespace
} // namespace mk::orlo::test
