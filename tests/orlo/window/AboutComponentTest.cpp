// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/AboutComponent.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/LocalisedStringsManager.h"
#include "orlo/window/Credits.h"
#include "plugin_core/style/ColourIds.h"
#include "tests/support/Mouse.h"
#include "tests/support/SourceTree.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TranslationFile.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

struct PageInWindow
{
    explicit PageInWindow (int width = 1050, int height = 578) : window (width, height)
    {
        window.add (about, { width, height });
        about.openInBrowser = [this] (const juce::URL& page)
        { opened.push_back (page.toString (false).toStdString()); };
    }

    [[nodiscard]] juce::Label& getLabel (int index)
    {
        return *dynamic_cast<juce::Label*> (about.getChildComponent (index));
    }

    [[nodiscard]] juce::String getAllText()
    {
        juce::String text;

        for (int i = 0; i < about.getNumChildComponents(); ++i)
            text << getLabel (i).getText() << "\n";

        return text;
    }

    [[nodiscard]] juce::Label& getWebsiteLabel() { return getLabel (4); }

    AudioPluginAudioProcessor processor;
    StyledWindow<PluginLookAndFeel> window;
    AboutComponent about { processor };
    std::vector<std::string> opened;
};

/** Reads the names in the table and in bold type of THIRD_PARTY_NOTICES.md. */
[[nodiscard]] juce::StringArray getNoticedNames()
{
    const auto file = getSourceFolder().getChildFile ("THIRD_PARTY_NOTICES.md");
    juce::StringArray names;

    for (const auto& line : juce::StringArray::fromLines (file.loadFileAsString()))
    {
        if (line.startsWith ("| ") && ! line.startsWith ("| What"))
        {
            const auto what = line.substring (2)
                                  .upToFirstOccurrenceOf (juce::String::charToString (0xa9), false, false)
                                  .upToFirstOccurrenceOf ("|", false, false)
                                  .upToFirstOccurrenceOf (" as carried", false, false)
                                  .replace (" and ", ",");
            names.addTokens (what, ",", {});
        }
    }

    names.trim();
    names.removeEmptyStrings();
    return names;
}

TEST (AboutComponent, ShowsProductWrapperVersionYearAndLicence)
{
    PageInWindow test;
    const auto text = test.getAllText();

    for (const auto& part : { juce::String ("Orlo"),
                              test.processor.getVersionText(),
                              juce::String (" - v" + test.processor.getProductInfo().version),
                              juce::String ("2025 Morlek"),
                              juce::String ("GNU Affero General Public License"),
                              juce::String ("morlek.example") })
        EXPECT_TRUE (text.contains (part)) << part;
}

TEST (AboutComponent, FollowsTheSpellingOfEachLanguage)
{
    const auto utf8 = [] (const char* text) { return juce::String::fromUTF8 (text); };
    const AudioPluginAudioProcessor processor;
    LocalisedStringsManager strings;

    strings.setLanguage ("fr");
    EXPECT_EQ (AboutComponent (processor).getTitle(), utf8 ("\xc3\x80 propos d'Orlo"));
    EXPECT_TRUE (makeCredits().contains (utf8 ("Biblioth\xc3\xa8ques : HarfBuzz")));

    strings.setLanguage ("it");
    EXPECT_EQ (AboutComponent (processor).getTitle(), "Informazioni su Orlo");
    EXPECT_TRUE (makeCredits().contains ("Librerie: HarfBuzz"));

    strings.setLanguage ("en");
    EXPECT_EQ (AboutComponent (processor).getTitle(), "About Orlo");
    EXPECT_FALSE (makeCredits().contains ("%s"));
}

TEST (AboutComponent, PutsTheNamesWhereTheLanguageHasThem)
{
    const AudioPluginAudioProcessor processor;
    juce::LocalisedStrings::setCurrentMappings (
        new juce::LocalisedStrings ("\"About %s\" = \"%s in brief\"\n\"Fonts: %s\" = \"With %s as fonts\"", false));
    const auto credits = makeCredits();
    const auto title = AboutComponent (processor).getTitle();
    LocalisedStringsManager().setLanguage ("en");

    EXPECT_EQ (title, "Orlo in brief");
    EXPECT_TRUE (credits.contains ("With Barlow (Jeremy Tribby), JetBrains Mono (JetBrains) as fonts\n")) << credits;
}

TEST (AboutComponent, CreditsEveryLibraryThatTheNoticesName)
{
    const auto names = getNoticedNames();
    ASSERT_GE (names.size(), 12);

    for (const auto& name : names)
        EXPECT_TRUE (makeCredits().containsIgnoreCase (
            name.upToFirstOccurrenceOf (" 8.", false, false).upToLastOccurrenceOf (" 3", false, false)))
            << name;
}

TEST (AboutComponent, CreditsFontsAndColourMaps)
{
    const auto credits = makeCredits();

    for (const auto* const name : { "Barlow",
                                    "JetBrains Mono",
                                    "CMasher",
                                    "Ellert van der Velden",
                                    "Turbo",
                                    "Anton Mikhailov",
                                    "viridis",
                                    "plasma",
                                    "inferno",
                                    "magma",
                                    "cividis",
                                    "rocket",
                                    "mako",
                                    "cubehelix",
                                    "Dave Green",
                                    "Michael Waskom" })
        EXPECT_TRUE (credits.contains (name)) << name;
}

TEST (AboutComponent, TheCreditsFitTheirAreaInEachLanguage)
{
    for (const auto& code : getLanguageCodes())
    {
        LocalisedStringsManager strings;
        ASSERT_TRUE (strings.setLanguage (code));

        for (const auto width : { 500, 1050, 1818, 2500 })
        {
            PageInWindow test (width, juce::roundToInt (float (width) / 1.818f));

            for (int i = 0; i < test.about.getNumChildComponents(); ++i)
            {
                auto& label = test.getLabel (i);
                const auto font = test.window.style.getLabelFont (label);
                juce::AttributedString text (label.getText());
                text.setFont (font);
                juce::TextLayout layout;
                layout.createLayout (text, float (label.getWidth()));
                EXPECT_LE (layout.getHeight(), float (label.getHeight()) + 1.0f) << code << " " << width << " " << i;
            }
        }
    }

    LocalisedStringsManager().setLanguage ("en");
}

TEST (AboutComponent, IsLaidOutInRowsFromTheTop)
{
    const auto layout = AboutComponent::makeLayout ({ 1818, 1000 }, 200);
    EXPECT_EQ (layout.title, juce::Rectangle<int> (30, 124, 1758, 282));
    EXPECT_EQ (layout.version, juce::Rectangle<int> (30, 437, 1758, 75));
    EXPECT_EQ (layout.credits, juce::Rectangle<int> (30, 543, 1758, 150));
    EXPECT_EQ (layout.website, juce::Rectangle<int> (809, 693, 200, 75));
    EXPECT_EQ (layout.footer, juce::Rectangle<int> (30, 923, 1758, 47));
}

TEST (AboutComponent, KeepsItsPartsInsideAtAnySize)
{
    for (const auto size : { juce::Point<int> (0, 0), juce::Point<int> (1, 1), juce::Point<int> (100, 5000) })
    {
        const juce::Rectangle<int> bounds (size.x, size.y);
        const auto layout = AboutComponent::makeLayout (bounds, 300);

        for (const auto part : { layout.title, layout.version, layout.credits, layout.website, layout.footer })
            EXPECT_TRUE (part.isEmpty() || bounds.contains (part)) << size.toString() << ": " << part.toString();
    }
}

TEST (AboutComponent, OnlyTheTextOfTheAddressIsALink)
{
    PageInWindow test;
    auto& website = test.getWebsiteLabel();
    const auto font = test.window.style.getLabelFont (website);
    EXPECT_EQ (website.getWidth(), int (std::ceil (juce::GlyphArrangement::getStringWidth (font, "morlek.example"))));
    EXPECT_EQ (test.about.getComponentAt (website.getBounds().getCentre()), &website);
    EXPECT_EQ (test.about.getComponentAt (website.getPosition() - juce::Point<int> (3, 0)), &test.about);
    EXPECT_EQ (test.about.getComponentAt (test.getLabel (3).getBounds().getCentre()), &test.about);
}

TEST (AboutComponent, AClickOnTheAddressOpensItAndCloses)
{
    PageInWindow test;
    auto event = makeMouseEvent (test.getWebsiteLabel(), { 2.0f, 2.0f });
    test.about.mouseDown (event);
    EXPECT_THAT (test.opened, ElementsAre ("https://morlek.example"));
    EXPECT_FALSE (test.about.isVisible());
}

TEST (AboutComponent, AnyOtherClickClosesAndOpensNothing)
{
    PageInWindow test;
    test.about.mouseDown (makeMouseEvent (test.about, { 2.0f, 2.0f }));
    EXPECT_THAT (test.opened, IsEmpty());
    EXPECT_FALSE (test.about.isVisible());
}

TEST (AboutComponent, ReturnOpensThePageAndEscapeCloses)
{
    PageInWindow test;
    EXPECT_FALSE (test.about.keyPressed (juce::KeyPress ('x')));
    EXPECT_TRUE (test.about.keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_FALSE (test.about.isVisible());
    EXPECT_THAT (test.opened, IsEmpty());

    test.about.setVisible (true);
    EXPECT_TRUE (test.about.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_FALSE (test.about.isVisible());
    EXPECT_EQ (test.opened.size(), 1u);
}

TEST (AboutComponent, IsADialogWithALinkToScreenReaders)
{
    PageInWindow test;
    const auto page = test.about.createAccessibilityHandler();
    EXPECT_EQ (page->getRole(), juce::AccessibilityRole::dialogWindow);
    EXPECT_EQ (page->getTitle(), "About Orlo");

    const auto link = test.getWebsiteLabel().createAccessibilityHandler();
    EXPECT_EQ (link->getRole(), juce::AccessibilityRole::hyperlink);
    EXPECT_TRUE (link->getActions().invoke (juce::AccessibilityActionType::press));
    EXPECT_EQ (test.opened.size(), 1u);
}

TEST (AboutComponent, FillsItsBoundsWithTheBackgroundOfPages)
{
    PageInWindow test;
    const auto picture = snapshotOf (test.about);
    EXPECT_EQ (picture.getPixelAt (0, 0), test.window.style.findColour (pluginCore::colourId::overlayBackground));
    EXPECT_EQ (picture.getPixelAt (1049, 577), juce::Colour (0xff111111));
}

} // namespace
} // namespace mk::orlo::test
