// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
using testing::HasSubstr;
using testing::Not;

[[nodiscard]] std::string readTurtle (const char* name)
{
    return juce::File (ORLO_LV2_BUNDLE).getChildFile (name).loadFileAsString().toStdString();
}

TEST (Lv2Bundle, ExportsItsEntryPointsAndNothingElse)
{
    const auto result = runProcess ({ ORLO_NM, "--dynamic", "--defined-only", "--format=posix", ORLO_LV2_BINARY });
    ASSERT_EQ (result.exitCode, 0) << result.errors;

    std::vector<juce::String> names;

    for (const auto& line : juce::StringArray::fromLines (result.output))
        if (line.isNotEmpty())
            names.push_back (line.upToFirstOccurrenceOf (" ", false, false));

    EXPECT_THAT (names, testing::UnorderedElementsAre ("lv2_descriptor", "lv2ui_descriptor"));
}

TEST (Lv2Bundle, IsAnAnalyserForHostsThatReadOnlyTheManifest)
{
    EXPECT_THAT (readTurtle ("manifest.ttl"),
                 HasSubstr ("<" ORLO_LV2_URI ">\n\ta lv2:Plugin , lv2:AnalyserPlugin ;\n"));
}

TEST (Lv2Bundle, StatesNameLicenceAndProject)
{
    const auto turtle = readTurtle ("dsp.ttl");
    EXPECT_THAT (turtle, HasSubstr ("\ta lv2:Plugin , lv2:AnalyserPlugin , doap:Project ;\n"));
    EXPECT_THAT (turtle, HasSubstr ("\tdoap:name \"Orlo\" ;\n"));
    EXPECT_THAT (turtle, HasSubstr ("\tdoap:license <https://spdx.org/licenses/AGPL-3.0-or-later.html> ;\n"));
    EXPECT_THAT (turtle, HasSubstr ("\tlv2:project <" ORLO_LV2_URI ":project> ;\n"));
    EXPECT_THAT (turtle, HasSubstr ("\tdoap:revision \"1.2.1\" ;\n"));
    EXPECT_THAT (turtle, Not (HasSubstr ("foaf:mbox"))) << "there is no address for mail";
}

TEST (Lv2Bundle, CountsItsVersionInEvenNumbersAsFinishedPluginsDo)
{
    EXPECT_THAT (readTurtle ("dsp.ttl"), HasSubstr ("\tlv2:minorVersion 4 ;\n\tlv2:microVersion 2 ;\n"));
}

TEST (Lv2Bundle, OffersNoPresetThatWouldDoNothing)
{
    EXPECT_THAT (readTurtle ("manifest.ttl"), Not (HasSubstr ("pset:Preset")));
}

TEST (Lv2Bundle, IsValidByTheVocabulariesOfLv2)
{
#ifndef ORLO_SORD_VALIDATE
    GTEST_SKIP() << "needs sord_validate and the specifications of lv2";
#else
    const auto findFiles = [] (const char* folder, const char* pattern)
    { return juce::File (folder).findChildFiles (juce::File::findFiles, true, pattern); };

    juce::StringArray commandLine { ORLO_SORD_VALIDATE };

    for (const auto& file : findFiles (ORLO_LV2_SPECIFICATIONS, "*.ttl"))
        commandLine.add (file.getFullPathName());

    for (const auto& file : findFiles (ORLO_LV2_BUNDLE, "*.ttl"))
        commandLine.add (file.getFullPathName());

    const auto result = runProcess (commandLine);
    EXPECT_EQ (result.exitCode, 0) << result.output << result.errors;

    // Exactly these three; the specifications may have mistakes of their own, which are not counted here.
    EXPECT_EQ (findFiles (ORLO_LV2_BUNDLE, "*.ttl").size(), 3);
#endif
}
} // namespace
} // namespace mk::orlo::test
