// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/editor/PluginEditor.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/Screen.h"
#include "tests/support/TestPluginEditor.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <array>

namespace mk::orlo::test
{
namespace
{
using namespace pluginCore;

class PluginEditorTest : public testing::Test
{
protected:
    /** Another test may have left a size in the user's settings. */
    PluginEditorTest() { settings.getSettings().removeAllProperties (nullptr); }

    ~PluginEditorTest() override { settings.getSettings().removeAllProperties (nullptr); }

    [[nodiscard]] std::unique_ptr<TestPluginEditor> open()
    {
        return std::unique_ptr<TestPluginEditor> (dynamic_cast<TestPluginEditor*> (processor.createEditor()));
    }

    [[nodiscard]] juce::String getSetting (const juce::Identifier& key) const
    {
        return settings.getSettings()[key].toString();
    }

    [[nodiscard]] static juce::Rectangle<int> getUsableArea()
    {
        const auto* const display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
        return display != nullptr ? display->userArea : juce::Rectangle<int> {};
    }

    const PluginGlobalSettings settings;
    juce::Array<juce::Displays::Display> displays;
    TestProcessor processor;
};

TEST_F (PluginEditorTest, AFirstStartOpensAtTheFallbackSize)
{
    const auto editor = open();
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 1050, 900 }));
}

TEST_F (PluginEditorTest, TheRatioCorrectsTheHeightOfTheFallback)
{
    processor.editorAspectRatio = 1.818;
    EXPECT_EQ (open()->getLocalBounds(), (juce::Rectangle { 1050, 578 }));
}

TEST_F (PluginEditorTest, ResizesBeforeTheEditorIsCompleteAreNotRemembered)
{
    auto tree = settings.getSettings();
    tree.setProperty (SettingsIds::defaultWidth, "700", nullptr);
    tree.setProperty (SettingsIds::defaultHeight, "500", nullptr);
    const auto editor = open();

    EXPECT_EQ (getSetting (SettingsIds::defaultWidth), "700");
    EXPECT_EQ (getSetting (SettingsIds::defaultHeight), "500");
    EXPECT_EQ (editor->getWidth(), 700);
}

TEST_F (PluginEditorTest, EveryLaterResizeIsRememberedByTheSessionAndTheUsersSettings)
{
    const auto editor = open();
    editor->setSize (640, 480);

    EXPECT_EQ (processor.getSessionState().pluginEditorWidth, 640);
    EXPECT_EQ (processor.getSessionState().pluginEditorHeight, 480);
    EXPECT_EQ (getSetting (SettingsIds::defaultWidth), "640");
    EXPECT_EQ (getSetting (SettingsIds::defaultHeight), "480");
}

TEST_F (PluginEditorTest, TheGripIsInTheCorner)
{
    const auto editor = open();
    editor->setSize (640, 480);
    EXPECT_EQ (editor->getCornerSize(), 24);
    EXPECT_EQ (editor->getCornerResizer().getBounds(), (juce::Rectangle { 616, 456, 24, 24 }));
    EXPECT_TRUE (editor->getCornerResizer().isAlwaysOnTop());
}

TEST_F (PluginEditorTest, ShrinksIfTooLargeForItsDisplay)
{
    const auto usable = getUsableArea();

    if (usable.isEmpty())
        GTEST_SKIP() << "needs a screen";

    const auto editor = open();
    editor->setSize (usable.getWidth() + 1, 300);
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { usable.getWidth() - 10, 300 }));

    editor->setSize (300, usable.getHeight() + 1);
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 300, usable.getHeight() - 100 }));

    editor->aspectRatio = 4.0;
    editor->setSize (usable.getWidth() + 1, 300);
    EXPECT_EQ (editor->getLocalBounds(),
               (juce::Rectangle { usable.getWidth() - 10, juce::roundToInt ((usable.getWidth() - 10) / 4.0) }));
    EXPECT_EQ (processor.getSessionState().pluginEditorWidth, usable.getWidth() - 10) << "only what fits is remembered";
}

TEST_F (PluginEditorTest, LimitsTheDragToItsDisplay)
{
    const auto usable = getUsableArea();

    if (usable.isEmpty())
        GTEST_SKIP() << "needs a screen";

    const auto editor = open();
    EXPECT_EQ (editor->getConstrainer()->getMaximumWidth(), 3000) << "the product's own limit at first";
    editor->setSize (500, 400);
    EXPECT_EQ (editor->getConstrainer()->getMinimumWidth(), 10);
    EXPECT_EQ (editor->getConstrainer()->getMaximumWidth(), usable.getWidth());
    EXPECT_EQ (editor->getConstrainer()->getMaximumHeight(), usable.getHeight() - 90);
}

TEST_F (PluginEditorTest, MovingWithinADisplayDoesNotTouchTheLimits)
{
    if (getUsableArea().isEmpty())
        GTEST_SKIP() << "needs a screen";

    const auto editor = open();
    editor->setSize (500, 400);
    editor->getConstrainer()->setMaximumWidth (777);
    editor->setTopLeftPosition (50, 60);
    editor->windowMoved (editor->getMoveDetector());
    EXPECT_EQ (editor->getConstrainer()->getMaximumWidth(), 777);
}

TEST_F (PluginEditorTest, ShrinksWhenDraggedToASmallerDisplay)
{
    const auto addDisplay = [this] (juce::Rectangle<int> area)
    {
        juce::Displays::Display display;
        display.totalArea = display.userArea = area;
        displays.add (display);
    };

    addDisplay ({ 0, 0, 2000, 1500 });
    addDisplay ({ 2000, 0, 1000, 700 });
    const auto editor = open();
    editor->displays = &displays;
    editor->setBounds (50, 50, 1200, 900);
    EXPECT_EQ (editor->getConstrainer()->getMaximumWidth(), 2000);

    // More than half of it is still on the first display.
    editor->setTopLeftPosition (1300, 50);
    editor->windowMoved (editor->getMoveDetector());
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 1200, 900 }));

    editor->setTopLeftPosition (1700, 50);
    editor->windowMoved (editor->getMoveDetector());
    EXPECT_EQ (editor->getBounds(), (juce::Rectangle { 1700, 50, 990, 600 }));
    EXPECT_EQ (editor->getConstrainer()->getMaximumWidth(), 1000);
    EXPECT_EQ (editor->getConstrainer()->getMaximumHeight(), 610);
}

TEST_F (PluginEditorTest, MenusCloseWhenTheApplicationComesToTheFrontOrTheWindowMoves)
{
    if (! Screen::getInstance().isAvailable())
        GTEST_SKIP() << "needs a screen";

    const auto editor = open();
    editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
    editor->setVisible (true);

    const auto isMenuOpen = [] { return juce::ModalComponentManager::getInstance()->getNumModalComponents() == 1; };
    const auto openMenu = [&]
    {
        juce::PopupMenu menu;
        menu.addItem (1, "Item");
        menu.showMenuAsync (juce::PopupMenu::Options().withParentComponent (editor.get()));
        return isMenuOpen();
    };

    // Checked at once, because a menu in a window that the user does not work with closes by itself.
    ASSERT_TRUE (openMenu());
    editor->applicationActiveChanged (editor->getMoveDetector(), false);
    EXPECT_TRUE (isMenuOpen());
    editor->applicationActiveChanged (editor->getMoveDetector(), true);
    EXPECT_FALSE (isMenuOpen());

    ASSERT_TRUE (openMenu());
    editor->windowMoved (editor->getMoveDetector());
    EXPECT_FALSE (isMenuOpen());

    ASSERT_TRUE (openMenu());
    editor->setSize (400, 300);
    EXPECT_FALSE (isMenuOpen());

    ASSERT_TRUE (openMenu());
    editor->toFront (false);
    EXPECT_FALSE (isMenuOpen());
}

TEST_F (PluginEditorTest, AllEditorsShareOneLookAndFeelThatIsDeletedWithTheLast)
{
    auto first = open();
    auto* const shared = &first->getLookAndFeel();
    ASSERT_NE (dynamic_cast<PluginEditor::DefaultPluginLookAndFeel*> (shared), nullptr);

    TestProcessor other;
    {
        const std::unique_ptr<juce::AudioProcessorEditor> second (other.createEditor());
        EXPECT_EQ (&second->getLookAndFeel(), shared);
    }

    EXPECT_EQ (&first->getLookAndFeel(), shared);
    first = nullptr;
    EXPECT_EQ (dynamic_cast<LookAndFeel*> (&juce::LookAndFeel::getDefaultLookAndFeel()), nullptr);
}

TEST_F (PluginEditorTest, TheLookAndFeelKnowsTheSizeOfTheWindowResizedLast)
{
    const auto editor = open();
    auto* const style = dynamic_cast<LookAndFeel*> (&editor->getLookAndFeel());
    ASSERT_NE (style, nullptr);
    editor->setSize (640, 480);
    EXPECT_EQ (style->getEditorWidth(), 640);
    EXPECT_EQ (style->getEditorHeight(), 480);
}

TEST_F (PluginEditorTest, FindsAParameterByTheNameOfAComponent)
{
    const auto editor = open();
    juce::Component control;
    EXPECT_EQ (editor->getControlParameterIndex (control), -1);
    control.setName ("nothing");
    EXPECT_EQ (editor->getControlParameterIndex (control), -1);
    control.setName ("skewed");
    EXPECT_EQ (editor->getControlParameterIndex (control), 2);
}

} // namespace
} // namespace mk::orlo::test
