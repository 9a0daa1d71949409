// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/ParameterValues.h"

#include "orlo/parameters/ColourMapNames.h"
#include "orlo/parameters/Params.h"
#include "tools/orlo-render/RenderError.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;
using testing::HasSubstr;

/** The error message for a text; empty if the text is accepted. */
[[nodiscard]] std::string complaintAbout (const char* id, const char* text)
{
    ParameterValues values;

    try
    {
        values.set (id, text);
        return {};
    }
    catch (const RenderError& error)
    {
        EXPECT_EQ (error.getExitCode(), RenderError::usage);
        return error.what();
    }
}

[[nodiscard]] float valueOf (const char* id, const char* text)
{
    ParameterValues values;
    values.set (id, text);
    return values.get (id);
}
} // namespace

TEST (ParameterValues, StartAtTheParametersDefaults)
{
    const ParameterValues values;
    EXPECT_EQ (values.get (Params::id::mode), 1.0f);
    EXPECT_EQ (values.get (Params::id::fftSize), 3.0f);
    EXPECT_EQ (values.get (Params::id::floor), -100.0f);
    EXPECT_EQ (values.get (Params::id::ceiling), 0.0f);
    EXPECT_EQ (values.get (Params::id::maxFreq), 100.0f);
    EXPECT_EQ (values.get (Params::id::speed), 40.0f);
    EXPECT_EQ (values.get (Params::id::freqScale), 1.0f);
}

TEST (ParameterValues, KnowEveryParameterOfThePlugInAndNothingElse)
{
    const ParameterValues values;

    for (const auto* const id : { "mode",
                                  "fftSize",
                                  "hiDPI",
                                  "freeze",
                                  "drawMode",
                                  "floor",
                                  "ceiling",
                                  "minFreq",
                                  "maxFreq",
                                  "speed",
                                  "ruler",
                                  "freqScale",
                                  "keyboard",
                                  "autoFreeze",
                                  "internal",
                                  "colourMap" })
        EXPECT_TRUE (values.contains (id)) << id;

    EXPECT_FALSE (values.contains ("height"));
    EXPECT_FALSE (values.contains (""));
    EXPECT_EQ (values.describe().size(), 16);
}

TEST (ParameterValues, AcceptChoicesByTheirTexts)
{
    EXPECT_EQ (valueOf ("mode", "Classic"), 0.0f);
    EXPECT_EQ (valueOf ("fftSize", "8192"), 5.0f);
    EXPECT_EQ (valueOf ("freqScale", "ERB"), 4.0f);
    EXPECT_EQ (valueOf ("freqScale", "erb"), 4.0f);
    EXPECT_EQ (valueOf ("hiDPI", "2x"), 1.0f);

    const auto& maps = colourMapNames;

    for (size_t i = 0; i < maps.size(); ++i)
        EXPECT_EQ (valueOf ("colourMap", maps[i]), float (i)) << maps[i];
}

TEST (ParameterValues, RefuseAnUnknownChoiceAndListTheKnownOnes)
{
    EXPECT_EQ (complaintAbout ("mode", "Best"), "--mode: 'Best' is not one of Classic, Enhanced");
    EXPECT_THAT (complaintAbout ("fftSize", "1000"), HasSubstr ("256, 512, 1024, 2048, 4096, 8192"));

    // Reserved indices are not choices.
    EXPECT_THAT (complaintAbout ("freqScale", ""), HasSubstr ("Linear, Log, Mel, Bark, ERB"));
}

TEST (ParameterValues, AcceptOnAndOffForSwitches)
{
    for (const auto* const text : { "On", "on", "yes", "true", "1" })
        EXPECT_EQ (valueOf ("freeze", text), 1.0f) << text;

    for (const auto* const text : { "Off", "off", "no", "false", "0" })
        EXPECT_EQ (valueOf ("ruler", text), 0.0f) << text;

    EXPECT_EQ (complaintAbout ("keyboard", "maybe"), "--keyboard: 'maybe' is neither on nor off");
}

TEST (ParameterValues, ReadPositiveGainsAsNegative)
{
    EXPECT_NEAR (valueOf ("floor", "-90"), -90.0f, 1.0e-4f);
    EXPECT_NEAR (valueOf ("floor", "90"), -90.0f, 1.0e-4f);
    EXPECT_NEAR (valueOf ("ceiling", "-6.5 dB"), -6.5f, 1.0e-4f);
    EXPECT_EQ (valueOf ("floor", "-140"), -140.0f);
    EXPECT_EQ (valueOf ("floor", "0"), 0.0f);
}

TEST (ParameterValues, RefuseNumbersOutOfRangeInsteadOfClamping)
{
    EXPECT_EQ (complaintAbout ("floor", "-140.5"), "--floor: '-140.5' lies outside -140 to 0");
    EXPECT_THAT (complaintAbout ("ceiling", "141"), HasSubstr ("lies outside"));
    EXPECT_THAT (complaintAbout ("speed", "100.5"), HasSubstr ("lies outside 0 to 100"));
    EXPECT_THAT (complaintAbout ("speed", "-5"), HasSubstr ("lies outside"));
    EXPECT_THAT (complaintAbout ("minFreq", "-5"), HasSubstr ("lies outside"));
    EXPECT_THAT (complaintAbout ("maxFreq", "101 %"), HasSubstr ("lies outside"));
    EXPECT_THAT (complaintAbout ("internal", "1.5"), HasSubstr ("lies outside"));
}

TEST (ParameterValues, RefuseTextsThatAreNotNumbers)
{
    EXPECT_EQ (complaintAbout ("floor", "low"), "--floor: 'low' is not a number");
    EXPECT_THAT (complaintAbout ("speed", ""), HasSubstr ("is not a number"));
    EXPECT_THAT (complaintAbout ("speed", "40dB"), HasSubstr ("is not a number"));
    EXPECT_THAT (complaintAbout ("floor", "nan"), HasSubstr ("is not a number"));
}

TEST (ParameterValues, AcceptPercentOfTheWholeRange)
{
    EXPECT_NEAR (valueOf ("speed", "25 %"), 25.0f, 1.0e-4f);
    EXPECT_NEAR (valueOf ("minFreq", "0.5"), 0.5f, 1.0e-4f);
    EXPECT_NEAR (valueOf ("maxFreq", "50%"), 50.0f, 1.0e-3f);
}

TEST (ParameterValues, AcceptTheTextThatTheInternalParameterItselfShows)
{
    EXPECT_EQ (complaintAbout ("internal", "-"), "");
}

TEST (ParameterValues, AcceptFrequencyLimitsInHertz)
{
    ParameterValues values;
    values.set ("minFreq", "200Hz");
    values.set ("maxFreq", "11025 hz");
    EXPECT_FLOAT_EQ (values.getFrequencyFraction ("minFreq", 44100.0), 200.0f / 22050.0f);
    EXPECT_FLOAT_EQ (values.getFrequencyFraction ("maxFreq", 44100.0), 0.5f);
    EXPECT_FLOAT_EQ (values.getFrequencyFraction ("maxFreq", 22050.0), 1.0f);

    values.set ("maxFreq", "50");
    EXPECT_NEAR (values.getFrequencyFraction ("maxFreq", 22050.0), 0.5f, 1.0e-5f);

    EXPECT_THAT (complaintAbout ("minFreq", "-200Hz"), HasSubstr ("is not a frequency"));
    EXPECT_THAT (complaintAbout ("minFreq", "Hz"), HasSubstr ("is not a frequency"));
    EXPECT_THAT (complaintAbout ("speed", "200Hz"), HasSubstr ("is not a number"));
}

TEST (ParameterValues, RefuseAFrequencyAboveHalfTheSampleRate)
{
    ParameterValues values;
    values.set ("maxFreq", "12000Hz");

    try
    {
        juce::ignoreUnused (values.getFrequencyFraction ("maxFreq", 22050.0));
        FAIL();
    }
    catch (const RenderError& error)
    {
        EXPECT_STREQ (error.what(), "--maxFreq: 12000 Hz lies above half the sample rate, 11025 Hz");
    }
}

} // namespace mk::orlo::test
