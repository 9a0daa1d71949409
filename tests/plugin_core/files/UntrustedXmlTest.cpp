// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/files/UntrustedXml.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] std::unique_ptr<juce::XmlElement> parse (std::string_view text)
{
    return parseUntrustedXml (text.data(), text.size());
}

[[nodiscard]] bool isSafe (std::string_view text) { return isSafeXml (text.data(), text.size()); }

[[nodiscard]] std::string repeat (const std::string& text, int times)
{
    std::string result;

    for (int i = 0; i < times; ++i)
        result += text;

    return result;
}
} // namespace

TEST (UntrustedXml, ReadsAnOrdinaryDocument)
{
    const auto xml = parse ("<?xml version=\"1.0\"?>\r\n<!-- by hand -->\n<A b=\"1 &amp; 2 &#xe9;&#233;\"><C/></A>");
    ASSERT_NE (xml, nullptr);
    EXPECT_EQ (xml->getStringAttribute ("b"), juce::CharPointer_UTF8 ("1 & 2 \xc3\xa9\xc3\xa9"));
    EXPECT_NE (xml->getChildByName ("C"), nullptr);
}

TEST (UntrustedXml, ReadsWhatTheWriterEscapes)
{
    juce::XmlElement written ("A");
    written.setAttribute ("b", juce::CharPointer_UTF8 ("<\"'&>\t\r\n\x01 \xc3\xa9 \xf0\x9f\x8e\xb9"));
    const auto xml = parse (written.toString().toStdString());
    ASSERT_NE (xml, nullptr);
    EXPECT_TRUE (xml->isEquivalentTo (&written, false));
}

TEST (UntrustedXml, RefusesDeclarationsSinceEntitiesCanContainThemselves)
{
    EXPECT_EQ (parse ("<!DOCTYPE a [<!ENTITY e \"<b>&e;</b>\">]><a>&e;</a>"), nullptr);
    EXPECT_FALSE (isSafe ("<!DOCTYPE a><a/>"));
    EXPECT_FALSE (isSafe ("<a><!ENTITY x \"y\"></a>"));
    EXPECT_TRUE (isSafe ("<a><![CDATA[x]]></a>"));
}

TEST (UntrustedXml, RefusesCharacterReferencesThatEndTooEarlyOrNameNoCharacter)
{
    for (const auto* const text : { "<a>&",
                                    "<a>&#",
                                    "<a>&#x",
                                    "<a>&#x41",
                                    "<a>&unknown;</a>",
                                    "<a>&#xd800;</a>",
                                    "<a>&#x110000;</a>",
                                    "<a>&#0;</a>",
                                    "<a>&#-5;</a>",
                                    "<a>&#x;</a>",
                                    "<a>&#6 5;</a>",
                                    "<a>&#99999999999;</a>",
                                    "<a b=\"R&B\"/>" })
        EXPECT_EQ (parse (text), nullptr) << text;
}

TEST (UntrustedXml, RefusesMoreTagsThanAnyDocumentOfOursHasSoThatDepthIsBounded)
{
    EXPECT_NE (parse (repeat ("<a>", 250) + repeat ("</a>", 250)), nullptr);
    EXPECT_EQ (parse (repeat ("<a>", 251) + repeat ("</a>", 251)), nullptr);
    EXPECT_NE (parse ("<a>" + repeat ("<b/>", 498) + "</a>"), nullptr);
    EXPECT_EQ (parse ("<a>" + repeat ("<b/>", 499) + "</a>"), nullptr);
    EXPECT_EQ (parse (repeat ("<a>", 1000000)), nullptr);
}

TEST (UntrustedXml, RefusesBrokenUtf8)
{
    EXPECT_EQ (parse ("<a b=\"\xff\xfe\"/>"), nullptr);
    EXPECT_EQ (parse ("<a b=\"\xe2\x82"), nullptr);
    EXPECT_EQ (parse (std::string_view ("\xff\xfe<\0a\0/\0>\0", 10)), nullptr);
}

TEST (UntrustedXml, RefusesWhatIsLargerThanAnyDocumentOfOurs)
{
    const std::string padding (4 * 1024 * 1024, ' ');
    EXPECT_EQ (parse ("<a/>" + padding), nullptr);
    EXPECT_NE (parse ("<a/>" + padding.substr (4)), nullptr);
}

TEST (UntrustedXml, EndsAtTheFirstNullByte)
{
    EXPECT_NE (parse (std::string_view ("<a/>\0<", 6)), nullptr);

    const auto cut = parse (std::string_view ("<a\0 b=\"1\"/>", 11));
    ASSERT_NE (cut, nullptr);
    EXPECT_EQ (cut->getNumAttributes(), 0);
}

TEST (UntrustedXml, IsNullForNoTextAtAll)
{
    EXPECT_EQ (parse (""), nullptr);
    EXPECT_EQ (parseUntrustedXml (nullptr, 0), nullptr);
}

TEST (UntrustedXml, ReadsAFileWithOrWithoutAByteOrderMark)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.xml");

    EXPECT_EQ (parseUntrustedXml (file), nullptr);
    EXPECT_EQ (parseUntrustedXml (folder.get()), nullptr);

    ASSERT_TRUE (file.replaceWithText ("<a/>"));
    EXPECT_NE (parseUntrustedXml (file), nullptr);

    ASSERT_TRUE (file.replaceWithData ("\xef\xbb\xbf<a/>", 7));
    EXPECT_NE (parseUntrustedXml (file), nullptr);

    ASSERT_TRUE (file.replaceWithData ("", 0));
    EXPECT_EQ (parseUntrustedXml (file), nullptr);
}

} // namespace mk::pluginCore
