// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/files/UntrustedXml.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#if ! JUCE_WINDOWS
    #include <fcntl.h>
    #include <sys/stat.h>
    #include <unistd.h>
#endif

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] std::unique_ptr<juce::XmlElement> parse (std::string_view text)
{
    return parseUntrustedXml (text.data(), text.size());
}

/** The attribute b of the element a, written as given. */
[[nodiscard]] juce::String parseValue (const std::string& written)
{
    const auto xml = parse ("<a b=\"" + written + "\"/>");
    return xml != nullptr ? xml->getStringAttribute ("b", "missing") : juce::String ("refused");
}

[[nodiscard]] std::string repeat (const std::string& text, int times)
{
    std::string result;

    for (int i = 0; i < times; ++i)
        result += text;

    return result;
}
} // namespace

//==============================================================================
TEST (UntrustedXml, ReadsElementsAndTheirAttributesInOrder)
{
    const auto xml =
        parse ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n\r\n<!-- by hand -->\n"
               "<A first='1' second = \"2\"\n><B c=\"'\"/><!-- <x> --><x:C-1_ >\t<D/></x:C-1_\n></A>\n<!---->\n");
    ASSERT_NE (xml, nullptr);
    EXPECT_EQ (xml->toString (juce::XmlElement::TextFormat().singleLine().withoutHeader()),
               "<A first=\"1\" second=\"2\"><B c=\"'\"/><x:C-1_><D/></x:C-1_></A>");
}

TEST (UntrustedXml, ReadsWhatTheWriterWritesAndAsJuceReadsIt)
{
    juce::XmlElement written ("A");
    written.setAttribute ("b", juce::CharPointer_UTF8 ("<\"'&>\t\r\n\x01\x7f \xc3\xa9 \xf0\x9f\x8e\xb9"));
    written.setAttribute ("c", juce::String());
    written.createNewChildElement ("D")->createNewChildElement ("E")->setAttribute ("f", 0.1);
    written.createNewChildElement ("D");

    for (const auto& text : { written.toString(), written.toString (juce::XmlElement::TextFormat().singleLine()) })
    {
        const auto xml = parseUntrustedXml (text);
        ASSERT_NE (xml, nullptr) << text;
        EXPECT_TRUE (xml->isEquivalentTo (&written, false));
        EXPECT_TRUE (xml->isEquivalentTo (juce::parseXML (text).get(), false));
    }
}

TEST (UntrustedXml, ResolvesReferencesToCharacters)
{
    EXPECT_EQ (parseValue ("1 &amp; 2 &lt;&gt;&quot;&apos;"), "1 & 2 <>\"'");
    EXPECT_EQ (parseValue ("&#65;&#x41;&#X41;&#x0041;"), "AAAA");
    EXPECT_EQ (parseValue ("&#xe9;&#233;&#x1f3b9;"), juce::CharPointer_UTF8 ("\xc3\xa9\xc3\xa9\xf0\x9f\x8e\xb9"));
    EXPECT_EQ (parseValue ("&amp;amp;"), "&amp;");
}

TEST (UntrustedXml, RefusesReferencesThatAreCutOffOrNameNoCharacter)
{
    for (const auto* const written : { "&",
                                       "&;",
                                       "&amp",
                                       "&AMP;",
                                       "&unknown;",
                                       "R&B",
                                       "&#;",
                                       "&#x;",
                                       "&#x41",
                                       "&#xg;",
                                       "&#6 5;",
                                       "&#-5;",
                                       "&#+5;",
                                       "&#0;",
                                       "&#xd800;",
                                       "&#x110000;",
                                       "&#99999999999999999999;" })
        EXPECT_EQ (parseValue (written), "refused") << written;
}

TEST (UntrustedXml, RefusesDeclarationsSinceEntitiesCanContainThemselves)
{
    EXPECT_EQ (parse ("<!DOCTYPE a [<!ENTITY e \"<b>&e;</b>\">]><a>&e;</a>"), nullptr);
    EXPECT_EQ (parse ("<!DOCTYPE a><a/>"), nullptr);
    EXPECT_EQ (parse ("<a><!ENTITY x \"y\"></a>"), nullptr);
}

TEST (UntrustedXml, RefusesTextBetweenElementsButNotWhitespace)
{
    EXPECT_EQ (parse ("<a>text<b><c/></b></a>"), nullptr);
    EXPECT_EQ (parse ("<a><b/>text</a>"), nullptr);
    EXPECT_EQ (parse ("<a>&#32;</a>"), nullptr);
    EXPECT_EQ (parse ("<a><![CDATA[text]]></a>"), nullptr);
    EXPECT_NE (parse ("<a>\r\n\t<b> </b>\n\n</a>"), nullptr);
}

TEST (UntrustedXml, RefusesWhatIsNotWellFormed)
{
    for (const auto* const text : { "",
                                    " ",
                                    "text",
                                    "<",
                                    "<a",
                                    "<a>",
                                    "<a/",
                                    "<a><b></a>",
                                    "<a></b>",
                                    "</a>",
                                    "<a/><b/>",
                                    "<a/>text",
                                    "text<a/>",
                                    "< a/>",
                                    "<a / >",
                                    "<1/>",
                                    "<-/>",
                                    "<a.b/>",
                                    "<\xc3\xa9/>",
                                    "<a b/>",
                                    "<a b=/>",
                                    "<a b=1/>",
                                    "<a b=\"1/>",
                                    "<a b='1\"/>",
                                    "<a =\"1\"/>",
                                    "<a b=\"1\"c=\"2\"/>",
                                    "<a b=\"1\" b=\"2\"/>",
                                    "<a b=\"<\"/>",
                                    "<!-- --",
                                    "<!--><a/>",
                                    "<?xml",
                                    "<?xml version=\"1.0\"><a/>",
                                    "<a><!-- </a>",
                                    "<a><? </a>",
                                    "<a <!-- --> b=\"1\"/>" })
        EXPECT_EQ (parse (text), nullptr) << text;
}

TEST (UntrustedXml, RefusesEveryDocumentThatIsCutOff)
{
    const std::string text = "<?xml version=\"1.0\"?><!-- x --><A b=\"1 &amp; 2\" c='3'><B><C/></B></A>";
    ASSERT_NE (parse (text), nullptr);

    for (size_t length = 0; length < text.size(); ++length)
        EXPECT_EQ (parse (std::string_view (text).substr (0, length)), nullptr) << length;
}

TEST (UntrustedXml, RefusesMoreLevelsElementsOrAttributesThanAnyDocumentOfOursHas)
{
    EXPECT_NE (parse (repeat ("<a>", 100) + repeat ("</a>", 100)), nullptr);
    EXPECT_EQ (parse (repeat ("<a>", 101) + repeat ("</a>", 101)), nullptr);
    EXPECT_EQ (parse (repeat ("<a>", 1000000)), nullptr);

    EXPECT_NE (parse ("<a>" + repeat ("<b/>", 1999) + "</a>"), nullptr);
    EXPECT_EQ (parse ("<a>" + repeat ("<b/>", 2000) + "</a>"), nullptr);

    std::string attributes;

    for (int i = 0; i < 4000; ++i)
        attributes += " a" + std::to_string (i) + "=\"\"";

    EXPECT_NE (parse ("<a" + attributes + "/>"), nullptr);
    EXPECT_EQ (parse ("<a" + attributes + " b=\"\"/>"), nullptr);
}

TEST (UntrustedXml, RefusesWhatIsNotUtf8)
{
    EXPECT_EQ (parseValue ("\xff"), "refused");
    EXPECT_EQ (parseValue ("\xc4\xc4"), "refused");
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
    EXPECT_EQ (parse (std::string_view ("<a\0/>", 5)), nullptr);
}

TEST (UntrustedXml, IsNullForNoTextAtAll)
{
    EXPECT_EQ (parse (""), nullptr);
    EXPECT_EQ (parseUntrustedXml (nullptr, 0), nullptr);
    EXPECT_EQ (parseUntrustedXml (juce::String()), nullptr);
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

#if ! JUCE_WINDOWS

TEST (UntrustedXml, ReadsNoPipeWithoutAWriter)
{
    const orlo::test::TemporaryFolder folder;
    const auto pipe = folder.get().getChildFile ("a.xml");
    ASSERT_EQ (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600), 0);
    EXPECT_EQ (parseUntrustedXml (pipe), nullptr);
}

TEST (UntrustedXml, ReadsNoPipeThatHoldsADocument)
{
    const orlo::test::TemporaryFolder folder;
    const auto pipe = folder.get().getChildFile ("a.xml");
    ASSERT_EQ (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600), 0);

    // The reader keeps what the writer leaves behind.
    const auto reader = open (pipe.getFullPathName().toRawUTF8(), O_RDONLY | O_NONBLOCK);
    const auto writer = open (pipe.getFullPathName().toRawUTF8(), O_WRONLY);
    ASSERT_EQ (write (writer, "<a/>", 4), 4);
    close (writer);
    EXPECT_EQ (parseUntrustedXml (pipe), nullptr);
    close (reader);
}

TEST (UntrustedXml, ReadsNoDevice)
{
    const orlo::test::TemporaryFolder folder;
    const auto link = folder.get().getChildFile ("a.xml");
    ASSERT_TRUE (juce::File ("/dev/zero").createSymbolicLink (link, true));
    EXPECT_EQ (parseUntrustedXml (link), nullptr);
    EXPECT_EQ (parseUntrustedXml (juce::File ("/dev/zero")), nullptr);
}

TEST (UntrustedXml, ReadsTheFileThatALinkLeadsTo)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.xml");
    const auto link = folder.get().getChildFile ("link.xml");
    ASSERT_TRUE (file.replaceWithText ("<a/>"));
    ASSERT_TRUE (file.createSymbolicLink (link, true));
    EXPECT_NE (parseUntrustedXml (link), nullptr);
}

TEST (UntrustedXml, ReadsNoFileThatIsTooLarge)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.xml");
    ASSERT_TRUE (file.replaceWithText ("<a/>" + juce::String::repeatedString (" ", 4 * 1024 * 1024 - 4)));
    EXPECT_NE (parseUntrustedXml (file), nullptr);
    ASSERT_TRUE (file.appendText (" "));
    EXPECT_EQ (parseUntrustedXml (file), nullptr);
}

#endif

} // namespace mk::pluginCore
