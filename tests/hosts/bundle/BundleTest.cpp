// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
/** The JSON dialect of these files allows a comma after the last element; plain JSON does not. */
[[nodiscard]] juce::String removeTrailingCommas (const juce::String& text)
{
    juce::String cleaned;

    for (auto rest = text.getCharPointer(); ! rest.isEmpty(); ++rest)
        if (*rest != ',' || ! juce::String ("]}").containsChar (*(rest + 1).findEndOfWhitespace()))
            cleaned += juce::String::charToString (*rest);

    return cleaned;
}

[[nodiscard]] juce::var parseModuleInfo()
{
    const auto file = juce::File (ORLO_BUNDLE).getChildFile ("Contents/Resources/moduleinfo.json");
    return juce::JSON::parse (removeTrailingCommas (file.loadFileAsString()));
}

TEST (Bundle, ExportsItsEntryPointsAndNothingElse)
{
    const auto result = runProcess ({ ORLO_NM, "--dynamic", "--defined-only", "--format=posix", ORLO_BUNDLE_BINARY });
    ASSERT_EQ (result.exitCode, 0) << result.errors;

    std::vector<juce::String> names;

    for (const auto& line : juce::StringArray::fromLines (result.output))
        if (line.isNotEmpty())
            names.push_back (line.upToFirstOccurrenceOf (" ", false, false));

    EXPECT_THAT (names, testing::UnorderedElementsAre ("GetPluginFactory", "ModuleEntry", "ModuleExit"));
}

TEST (Bundle, DescribesItselfAsAnAnalyser)
{
    const auto info = parseModuleInfo();
    ASSERT_TRUE (info.isObject());
    EXPECT_EQ (info["Name"].toString(), "Orlo");
    EXPECT_EQ (info["Version"].toString(), "1.2.1");
    EXPECT_EQ (info["Factory Info"]["Vendor"].toString(), "Morlek");

    const auto& processor = info["Classes"][0];
    EXPECT_EQ (processor["Category"].toString(), "Audio Module Class");
    EXPECT_EQ (processor["Name"].toString(), "Orlo");
    EXPECT_EQ (processor["Vendor"].toString(), "Morlek");
    EXPECT_EQ (processor["Version"].toString(), "1.2.1");
    ASSERT_TRUE (processor["Sub Categories"].isArray());
    ASSERT_EQ (processor["Sub Categories"].size(), 2);
    EXPECT_EQ (processor["Sub Categories"][0].toString(), "Fx");
    EXPECT_EQ (processor["Sub Categories"][1].toString(), "Analyzer");
}

TEST (Bundle, KeepsItsClassIdentifiers)
{
    // Saved sessions find the plug-in by these.
    const auto info = parseModuleInfo();
    EXPECT_EQ (info["Classes"][0]["CID"].toString(), "ABCDEF019182FAEB4D726C6B4F726C6F");
    EXPECT_EQ (info["Classes"][1]["CID"].toString(), "ABCDEF011234ABCD4D726C6B4F726C6F");
}
} // namespace
} // namespace mk::orlo::test
