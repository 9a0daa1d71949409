// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/UpdateChangeLogComponent.h"

#include "plugin_core/localisation/LocalisedStringsManager.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TranslationFile.h"

#include <gmock/gmock.h>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::distance;
using orlo::test::snapshotOf;
using orlo::test::StyledWindow;
using testing::ElementsAre;

/** A notice over a window, and what its buttons have done. */
struct NoticeInWindow
{
    explicit NoticeInWindow (int width = 1050, int height = 578) : window (width, height)
    {
        window.add (notice, { width, height });
        notice.setDownloadUrl (juce::URL ("http://127.0.0.1/product/test"));
        notice.onDownload = [this] (const juce::URL& page) { calls.push_back (page.toString (false).toStdString()); };
        notice.onClose = [this] { calls.push_back ("close"); };
    }

    template <typename Child>
    [[nodiscard]] Child* findChild (int index)
    {
        for (auto* const child : notice.getChildren())
            if (auto* const found = dynamic_cast<Child*> (child))
                if (index-- == 0)
                    return found;

        return nullptr;
    }

    [[nodiscard]] juce::TextButton& getDownloadButton() { return *findChild<juce::TextButton> (0); }
    [[nodiscard]] juce::TextButton& getCloseButton() { return *findChild<juce::TextButton> (1); }
    [[nodiscard]] juce::Label& getTitleLabel() { return *findChild<juce::Label> (0); }

    StyledWindow<LookAndFeel> window;
    UpdateChangeLogComponent notice;
    std::vector<std::string> calls;
};

TEST (UpdateChangeLogComponent, IsTranslatedIntoEachLanguage)
{
    for (const auto& code : orlo::test::getLanguageCodes())
    {
        LocalisedStringsManager strings;
        ASSERT_TRUE (strings.setLanguage (code));
        NoticeInWindow test;
        EXPECT_EQ (test.getTitleLabel().getText(), juce::translate ("An update is available") + ":");
        EXPECT_EQ (test.notice.getTitle(), juce::translate ("An update is available"));
        EXPECT_EQ (test.getDownloadButton().getButtonText(), juce::translate ("proceed to download page"));
        EXPECT_EQ (test.getCloseButton().getButtonText(), juce::translate ("close"));
        EXPECT_GE (test.getDownloadButton().getWidth(),
                   test.getDownloadButton().getBestWidthForHeight (test.getDownloadButton().getHeight()))
            << code;
    }

    LocalisedStringsManager().setLanguage ("en");
}

TEST (UpdateChangeLogComponent, IsAPanelInTheMiddleOfADimmedWindow)
{
    NoticeInWindow test;
    const auto picture = snapshotOf (test.notice);
    EXPECT_EQ (picture.getPixelAt (5, 5), juce::Colours::black.withAlpha (juce::uint8 (0x66)));

    const auto panel =
        juce::Rectangle<int> (1050, 578).getProportion (juce::Rectangle<float> (0.15f, 0.15f, 0.7f, 0.7f));
    const auto ground = test.window.style.findColour (colourId::overlayBackground);
    EXPECT_LE (distance (picture.getPixelAt (panel.getX() + 4, panel.getCentreY()), ground), 1);
    EXPECT_LE (distance (picture.getPixelAt (panel.getX() - 4, panel.getCentreY()), juce::Colour (0x66000000)), 1);

    // Its corners are round.
    EXPECT_LE (distance (picture.getPixelAt (panel.getX() + 1, panel.getY() + 1), juce::Colour (0x66000000)), 1);
}

TEST (UpdateChangeLogComponent, TheTextHasADarkerBackgroundOfTheSameColour)
{
    NoticeInWindow test;
    auto& text = *test.findChild<DisplayTextComponent> (0);
    const auto ground = test.window.style.findColour (colourId::overlayBackground);
    EXPECT_EQ (text.findColour (colourId::textViewBackground), ground.darker (0.1f));
    EXPECT_EQ (text.findColour (colourId::textViewOutline), ground.withMultipliedAlpha (0.8f));
}

TEST (UpdateChangeLogComponent, ThePartsNeverOverlapNorLeaveThePanel)
{
    using Layout = UpdateChangeLogComponent::Layout;

    for (const auto size : { juce::Point<int> (100, 100),
                             juce::Point<int> (300, 165),
                             juce::Point<int> (1050, 578),
                             juce::Point<int> (2400, 200),
                             juce::Point<int> (200, 1500) })
    {
        const juce::Rectangle<int> bounds (size.x, size.y);
        const Layout layout = UpdateChangeLogComponent::makeLayout (bounds, { 0.15f, 0.15f, 0.7f, 0.7f }, 250, 80);

        for (const auto part : { layout.title, layout.text, layout.download, layout.close })
            EXPECT_TRUE (layout.panel.contains (part)) << size.toString() << " " << part.toString();

        EXPECT_FALSE (layout.title.intersects (layout.text));
        EXPECT_FALSE (layout.text.intersects (layout.download));
        EXPECT_FALSE (layout.download.intersects (layout.close));
        EXPECT_EQ (layout.download.getHeight(), UpdateChangeLogComponent::getButtonHeight (layout.panel));
    }
}

TEST (UpdateChangeLogComponent, TheButtonsAreAtTheEndsOfTheirRow)
{
    const auto layout = UpdateChangeLogComponent::makeLayout ({ 1000, 1000 }, { 0.15f, 0.15f, 0.7f, 0.7f }, 250, 80);
    EXPECT_EQ (layout.panel, juce::Rectangle<int> (150, 150, 700, 700));
    EXPECT_EQ (layout.download, juce::Rectangle<int> (178, 738, 250, 84));
    EXPECT_EQ (layout.close, juce::Rectangle<int> (742, 738, 80, 84));
    EXPECT_EQ (layout.text.getBottom(), 738 - 28);
    EXPECT_EQ (layout.title.getY(), 178);
}

TEST (UpdateChangeLogComponent, TheButtonsGoToThePageAndClose)
{
    NoticeInWindow test;
    test.getDownloadButton().onClick();
    EXPECT_THAT (test.calls, ElementsAre ("http://127.0.0.1/product/test", "close"));

    test.calls.clear();
    test.getCloseButton().onClick();
    EXPECT_THAT (test.calls, ElementsAre ("close"));
}

TEST (UpdateChangeLogComponent, ReturnGoesToThePageAndEscapeCloses)
{
    NoticeInWindow test;
    EXPECT_TRUE (test.notice.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_THAT (test.calls, ElementsAre ("http://127.0.0.1/product/test", "close"));

    test.calls.clear();
    EXPECT_TRUE (test.notice.keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_THAT (test.calls, ElementsAre ("close"));
    EXPECT_FALSE (test.notice.keyPressed (juce::KeyPress ('x')));
}

TEST (UpdateChangeLogComponent, WithoutAPageTheDownloadButtonOnlyCloses)
{
    NoticeInWindow test;
    test.notice.setDownloadUrl ({});
    test.getDownloadButton().onClick();
    EXPECT_THAT (test.calls, ElementsAre ("close"));
}

TEST (UpdateChangeLogComponent, ScrollsItsTextByKeys)
{
    NoticeInWindow test;
    test.notice.setText (juce::String::repeatedString ("- line\n", 500));
    EXPECT_TRUE (test.notice.keyPressed (juce::KeyPress (juce::KeyPress::pageDownKey)));
    orlo::test::pumpPending();
    EXPECT_GT (test.findChild<DisplayTextComponent> (0)->getScrollPosition(), 0);
}

TEST (UpdateChangeLogComponent, IsADialogToScreenReaders)
{
    NoticeInWindow test;
    const auto handler = test.notice.createAccessibilityHandler();
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::dialogWindow);
    EXPECT_EQ (handler->getTitle(), "An update is available");
}

} // namespace
} // namespace mk::pluginCore::test
