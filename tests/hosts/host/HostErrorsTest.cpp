// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"
#include "tests/hosts/support/ScratchFolder.h"
#include "tests/hosts/support/VirtualDisplay.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
class HostErrors : public testing::Test
{
protected:
    /** Runs without a window; expects failure with this line alone. */
    void expectError (juce::StringArray arguments, const juce::String& line)
    {
        arguments.addArray ({ "--no-window", "--seconds", "0" });
        const auto result = runHost (arguments);
        EXPECT_EQ (result.exitCode, 1);
        EXPECT_EQ (result.errors, "orlo-host: " + line + "\n");
    }

    const ScratchFolder scratch;
};

TEST_F (HostErrors, NameAMissingPlugin)
{
    expectError ({ "--plugin", scratch.getPath ("No.vst3") }, "there is no plug-in " + scratch.getPath ("No.vst3"));
}

TEST_F (HostErrors, NameABundleThatHoldsNoPlugin)
{
    const auto bundle = scratch.getFile ("Empty.vst3");
    ASSERT_TRUE (bundle.getChildFile ("Contents").createDirectory());
    expectError ({ "--plugin", bundle.getFullPathName() },
                 bundle.getFullPathName() + " is no VST3 plug-in that can be loaded");

    const auto text = scratch.getFile ("Text.vst3");
    ASSERT_TRUE (text.replaceWithText ("not a plug-in"));
    expectError ({ "--plugin", text.getFullPathName() },
                 text.getFullPathName() + " is no VST3 plug-in that can be loaded");
}

TEST_F (HostErrors, NameAMissingAudioFile)
{
    expectError ({ scratch.getPath ("no.wav") }, "there is no file " + scratch.getPath ("no.wav"));
}

TEST_F (HostErrors, NameAFileThatIsNoAudio)
{
    for (const auto* const content : { "", "This is text.", "RIFF\x10" })
    {
        ASSERT_TRUE (scratch.getFile ("bad.wav").replaceWithText (content));
        expectError ({ scratch.getPath ("bad.wav") }, scratch.getPath ("bad.wav") + " is no audio that can be read");
    }
}

TEST_F (HostErrors, NameAnUnknownParameter)
{
    expectError ({ "--set", "loudness=3" }, "Orlo has no parameter 'loudness'");
}

TEST_F (HostErrors, NameAValueThatAParameterDoesNotHave)
{
    expectError ({ "--set", "colourMap=pink" }, "'Colour Map' has no value 'pink'");
    expectError ({ "--set", "fftSize=1000" }, "'FFT Size' has no value '1000'");
    expectError ({ "--set", "freeze=maybe" }, "'Freeze' has no value 'maybe'");
    expectError ({ "--set", "speed=fast" }, "'Speed' has no value 'fast'");
    expectError ({ "--set", "floor=-500" }, "'Floor Gain' goes from -140 to 0, not to '-500'");
}

TEST_F (HostErrors, NameAStateThatCannotBeRead)
{
    expectError ({ "--state-in", scratch.getPath ("none") }, "cannot read " + scratch.getPath ("none"));

    ASSERT_TRUE (scratch.getFile ("bad").replaceWithText ("not a state at all"));
    expectError ({ "--state-in", scratch.getPath ("bad") }, scratch.getPath ("bad") + " holds no state of a plug-in");
}

TEST_F (HostErrors, NameAPresetThatIsNone)
{
    expectError ({ "--preset", scratch.getPath ("none") }, scratch.getPath ("none") + " is no preset");

    for (const auto* const text : { "not a preset", "<Orlo/>" })
    {
        ASSERT_TRUE (scratch.getFile ("bad").replaceWithText (text));
        expectError ({ "--preset", scratch.getPath ("bad") }, scratch.getPath ("bad") + " is no preset");
    }
}

TEST_F (HostErrors, NameAStateThatCannotBeWritten)
{
    const auto path = scratch.getPath ("no/folder/state");
    expectError ({ "--state-out", path }, "cannot write " + path);
    EXPECT_FALSE (scratch.getFile ("no").exists());
}

TEST_F (HostErrors, NameAnUnknownOption) { expectError ({ "--loud" }, "unknown option '--loud' (see --help)"); }

TEST_F (HostErrors, SayThatTheDisplayIsMissing)
{
    const auto result = runHost ({ "--seconds", "0" });
    EXPECT_EQ (result.exitCode, 1);
    EXPECT_EQ (result.errors, "orlo-host: there is no display to open the window on (--no-window does without)\n");
}

TEST_F (HostErrors, DoNotOccurWithHelp)
{
    const auto result = runHost ({ "--help" });
    EXPECT_EQ (result.exitCode, 0);
    EXPECT_EQ (result.errors, "");
    EXPECT_TRUE (result.output.contains ("--set ID=VALUE"));
}
} // namespace
} // namespace mk::orlo::test
