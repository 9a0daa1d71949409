// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/UpdateReplies.h"

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace mk::pluginCore::test
{
namespace
{

using namespace std::string_view_literals;
namespace replies = updateReplies;

[[nodiscard]] juce::MemoryBlock blockOf (std::string_view bytes) { return { bytes.data(), bytes.size() }; }

[[nodiscard]] juce::String decoded (std::string_view bytes) { return replies::decode (blockOf (bytes)); }

} // namespace

TEST (VersionReply, HoldsVersionAndDate)
{
    const auto latest = replies::parseVersion ("macVersion:1.3.0;macReleaseDate:1763683200000");
    EXPECT_EQ (latest.version, (VersionNumber { 1, 3, 0, 99 }));
    EXPECT_EQ (latest.releaseDate, 1763683200000);
    EXPECT_FALSE (latest.isBeta);
}

TEST (VersionReply, MayNameABeta)
{
    const auto latest = replies::parseVersion ("macVersion:1.3.0Beta2");
    EXPECT_EQ (latest.version, (VersionNumber { 1, 3, 0, 2 }));
    EXPECT_TRUE (latest.isBeta);
}

TEST (VersionReply, QuotesProtectASemicolon)
{
    const auto latest = replies::parseVersion (
        "note:\"new; macVersion:9.9.9; and better\";macVersion:\"1.3.0\";macReleaseDate:\"12;13\"");
    EXPECT_EQ (latest.version, (VersionNumber { 1, 3, 0, 99 }));
    EXPECT_EQ (latest.releaseDate, 12);
}

TEST (VersionReply, IsSplitAtTheFirstColon)
{
    EXPECT_EQ (replies::parseVersion ("macVersion:1.3:5").version, (VersionNumber { 1, 3, 0, 99 }));
    EXPECT_EQ (replies::parseVersion ("x:macVersion:1.3").version, VersionNumber());
}

TEST (VersionReply, MissingFieldsAreZero)
{
    for (const auto* const text : { "", ";;;", "macReleaseDate", "windowsVersion:2.0.0", "macversion:2.0.0", ":" })
    {
        const auto latest = replies::parseVersion (text);
        EXPECT_LT (latest.version.getRank(), 100) << text;
        EXPECT_EQ (latest.releaseDate, 0) << text;
    }
}

TEST (VersionReply, WrongNumbersAreZeroOrTheNearest)
{
    EXPECT_EQ (replies::parseVersion ("macReleaseDate:soon").releaseDate, 0);
    EXPECT_EQ (replies::parseVersion ("macReleaseDate:99999999999999999999").releaseDate,
               std::numeric_limits<juce::int64>::max());
    EXPECT_EQ (replies::parseVersion ("macVersion:abc").version, (VersionNumber { 0, 0, 0, 99 }));
}

TEST (VersionReply, UsesTheLastOfTwoEqualKeys)
{
    EXPECT_EQ (replies::parseVersion ("macVersion:1.3.0;macVersion:1.4.0").version, (VersionNumber { 1, 4, 0, 99 }));
}

TEST (VersionReply, MayHaveBlanksAndLineEndsAroundItsFields)
{
    EXPECT_EQ (replies::parseVersion (" macVersion : 1.3.0 ;\n macReleaseDate: 5\n").version,
               (VersionNumber { 1, 3, 0, 99 }));
}

TEST (ReplyText, IsUtf8OrElseLatin1)
{
    EXPECT_EQ (decoded ("r\xc3\xa9glage"), juce::String::fromUTF8 ("r\xc3\xa9glage"));
    EXPECT_EQ (decoded ("r\xe9glage"), juce::String::fromUTF8 ("r\xc3\xa9glage"));
    EXPECT_EQ (decoded ("\xef\xbb\xbfmacVersion"), juce::String ("macVersion"));
}

TEST (ReplyText, HasPlainLineEndsAndNoControlCharacters)
{
    EXPECT_EQ (decoded ("a\r\nb\rc\nd\te"), juce::String ("a\nb\nc\nd\te"));
    EXPECT_EQ (decoded ("a\x1b[31mb\x7f"), juce::String ("a[31mb"));
    EXPECT_EQ (decoded ("a\0b"sv), juce::String ("a"));
    EXPECT_EQ (decoded (""), juce::String());
}

TEST (ReplyText, DropsACharacterThatWasCut)
{
    EXPECT_EQ (decoded ("abc\xc3"), juce::String ("abc"));
    EXPECT_EQ (decoded ("ab\xe2\x82"), juce::String ("ab"));
    EXPECT_EQ (decoded ("ab\xf0\x9f\x8e"), juce::String ("ab"));
    EXPECT_EQ (decoded ("ab\xe2\x82\xac"), juce::String::fromUTF8 ("ab\xe2\x82\xac"));
    EXPECT_EQ (decoded ("\xc3"), juce::String());
}

TEST (ReplyText, OfAnyBytesIsValid)
{
    juce::Random random (4);

    for (int i = 0; i < 200; ++i)
    {
        juce::MemoryBlock bytes (size_t (random.nextInt (300)));
        random.fillBitsRandomly (bytes.getData(), bytes.getSize());
        const auto text = replies::decode (bytes);
        EXPECT_LE (text.length(), int (bytes.getSize()));

        for (auto p = text.getCharPointer(); ! p.isEmpty(); ++p)
            EXPECT_TRUE (*p >= 0x20 || *p == '\n' || *p == '\t');

        static_cast<void> (replies::parseVersion (text));
    }
}

TEST (ChangeLogReply, IsTheWholeText) { EXPECT_EQ (replies::parseChangeLog ("1.3.0\n- new"), "1.3.0\n- new"); }

TEST (ChangeLogReply, IsEmptyIfTheSiteHasNoSuchPage)
{
    for (const auto* const reply : { "Sorry, the page you're looking for is not available.",
                                     "<h1>The Page You're Looking For Is Not Available</h1>",
                                     "THE PAGE YOU'RE LOOKING FOR IS NOT AVAILABLE" })
        EXPECT_EQ (replies::parseChangeLog (reply), "") << reply;
}

} // namespace mk::pluginCore::test
