// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/style/OrloColours.h"
#include "tests/support/SourceTree.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace mk::orlo
{
namespace
{
using Colours = std::map<int, juce::uint32>;

/** Reads the rows of the documentation's tables that begin with a colour id and an ARGB value. */
[[nodiscard]] Colours readDocumentedColours()
{
    const auto page = test::getSourceFolder().getChildFile ("docs/look.md");
    Colours colours;

    for (const auto& line : juce::StringArray::fromLines (page.loadFileAsString()))
    {
        const auto cells = juce::StringArray::fromTokens (line, "|", {});

        if (cells.size() > 3 && cells[1].trim().startsWith ("`0x") && cells[2].trim().startsWith ("`0x"))
            colours[cells[1].removeCharacters ("` ").getHexValue32()] =
                juce::uint32 (cells[2].removeCharacters ("` ").getHexValue32());
    }

    return colours;
}

TEST (ColourTableTest, TheDocumentedColoursMatchTheProgram)
{
    Colours set;

    for (const auto& colours : { pluginCore::getFrameworkColours(), getOrloColours() })
        for (const auto& colour : colours)
            EXPECT_TRUE (set.emplace (colour.id, colour.argb).second) << "set twice: " << std::hex << colour.id;

    const auto documented = readDocumentedColours();
    EXPECT_FALSE (documented.empty());
    EXPECT_EQ (documented, set);
}
} // namespace
} // namespace mk::orlo
