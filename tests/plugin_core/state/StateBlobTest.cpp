// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/StateBlob.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace mk::pluginCore
{
namespace
{

/** A blob with any magic and length words. */
[[nodiscard]] std::vector<char> makeBlob (juce::uint32 magic, juce::uint32 length, const std::string& text)
{
    std::vector<char> bytes (8 + text.size());
    magic = juce::ByteOrder::swapIfBigEndian (magic);
    length = juce::ByteOrder::swapIfBigEndian (length);
    std::memcpy (bytes.data(), &magic, 4);
    std::memcpy (bytes.data() + 4, &length, 4);

    if (! text.empty())
        std::memcpy (bytes.data() + 8, text.data(), text.size());

    return bytes;
}

[[nodiscard]] auto read (const std::vector<char>& bytes) { return readStateBlob (bytes.data(), int (bytes.size())); }

constexpr juce::uint32 magic = 0x21324356;

TEST (StateBlob, IsAMagicWordALengthAndTheTextWithItsTerminator)
{
    juce::XmlElement xml ("Orlo");
    xml.setAttribute ("name", juce::CharPointer_UTF8 ("caf\xc3\xa9"));
    const auto blob = writeStateBlob (xml);
    const auto* const bytes = static_cast<const char*> (blob.getData());

    EXPECT_EQ (juce::ByteOrder::littleEndianInt (bytes), magic);
    EXPECT_EQ (juce::ByteOrder::littleEndianInt (bytes + 4), blob.getSize() - 9);
    EXPECT_EQ (std::strlen (bytes + 8), blob.getSize() - 9);

    const auto readBack = readStateBlob (blob.getData(), int (blob.getSize()));
    ASSERT_NE (readBack, nullptr);
    EXPECT_TRUE (readBack->isEquivalentTo (&xml, false));
}

TEST (StateBlob, EightBytesAreNoDocument)
{
    EXPECT_EQ (read (makeBlob (magic, 7, "")), nullptr);
    EXPECT_EQ (readStateBlob (nullptr, 0), nullptr);
    EXPECT_EQ (readStateBlob (nullptr, 100), nullptr);
}

TEST (StateBlob, ANegativeSizeIsNoDocument)
{
    const auto blob = makeBlob (magic, 7, "<Orlo/>");
    EXPECT_EQ (readStateBlob (blob.data(), -1), nullptr);
    EXPECT_EQ (readStateBlob (blob.data(), std::numeric_limits<int>::min()), nullptr);
}

TEST (StateBlob, TheMagicWordMustMatch)
{
    EXPECT_NE (read (makeBlob (magic, 7, "<Orlo/>")), nullptr);
    EXPECT_EQ (read (makeBlob (magic + 1, 7, "<Orlo/>")), nullptr);
}

TEST (StateBlob, ALengthBeyondTheDataIsClampedToIt)
{
    const auto xml = read (makeBlob (magic, 0x7fffffff, "<Orlo/>"));
    ASSERT_NE (xml, nullptr);
    EXPECT_TRUE (xml->hasTagName ("Orlo"));
}

TEST (StateBlob, ALengthBelowTheDataEndsTheText)
{
    EXPECT_EQ (read (makeBlob (magic, 8, "<Orlo><A/></Orlo>")), nullptr);
    EXPECT_NE (read (makeBlob (magic, 17, "<Orlo><A/></Orlo>&")), nullptr);
}

TEST (StateBlob, AZeroOrNegativeLengthIsNoDocument)
{
    EXPECT_EQ (read (makeBlob (magic, 0, "<Orlo/>")), nullptr);
    EXPECT_EQ (read (makeBlob (magic, 0x80000000, "<Orlo/>")), nullptr);
    EXPECT_EQ (read (makeBlob (magic, 0xffffffff, "<Orlo/>")), nullptr);
}

TEST (StateBlob, ABlobThatEndsWithinItsParametersIsNoDocument)
{
    juce::XmlElement xml ("Orlo");
    auto* const parameters = xml.createNewChildElement ("PARAMS");

    for (int i = 0; i < 16; ++i)
        parameters->createNewChildElement ("PARAM")->setAttribute ("value", i);

    const auto blob = writeStateBlob (xml);
    const std::string text (static_cast<const char*> (blob.getData()) + 8, blob.getSize() - 9);
    const auto second = 8 + text.find ("<PARAM value=\"1\"");
    const auto last = 8 + text.find ("<PARAM value=\"15\"");

    for (auto size = second; size < last; ++size)
        EXPECT_EQ (read ({ blob.begin(), blob.begin() + int (size) }), nullptr) << size;

    // A text that lacks only its terminator is still complete.
    EXPECT_NE (read ({ blob.begin(), blob.end() - 1 }), nullptr);
}

TEST (StateBlob, DeeplyNestedElementsAreNoDocument)
{
    std::string bomb;

    for (int i = 0; i < 200000; ++i)
        bomb += "<a>";

    EXPECT_EQ (read (makeBlob (magic, juce::uint32 (bomb.size()), bomb)), nullptr);
}

} // namespace
} // namespace mk::pluginCore
