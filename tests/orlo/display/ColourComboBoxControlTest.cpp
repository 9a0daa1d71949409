// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ColourComboBoxControl.h"
#include "orlo/display/ColourMapMenuItem.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/parameters/Params.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo
{
namespace
{
using pluginCore::SettingsIds::preferedMap;
using test::PeerMouse;
using test::pumpPending;
using test::pumpUntil;

constexpr int numMaps = 46;

TEST (StepAroundTest, TheLastIsFollowedByTheFirst)
{
    EXPECT_EQ (stepAround (45, 1, 46), 0);
    EXPECT_EQ (stepAround (0, -1, 46), 45);
    EXPECT_EQ (stepAround (7, 1, 46), 8);
    EXPECT_EQ (stepAround (-1, 1, 46), 0) << "a step from no entry selects the first";
    EXPECT_EQ (stepAround (3, 1, 0), -1);
}

class ColourComboBoxControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (! test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        settings.getSettings().removeProperty (preferedMap, nullptr);
        window = std::make_unique<test::Window> (900, 600);
        window->setLookAndFeel (&style);
        window->addAndMakeVisible (editor);
        editor.addAndMakeVisible (control);
        control.setBounds (50, 20, 126, 28);
    }

    void TearDown() override
    {
        juce::PopupMenu::dismissAllActiveMenus();
        EXPECT_TRUE (
            pumpUntil ([] { return juce::ModalComponentManager::getInstance()->getNumModalComponents() == 0; }));

        if (window != nullptr)
            window->setLookAndFeel (nullptr);

        window.reset();
    }

    [[nodiscard]] int getIndex() const
    {
        return juce::roundToInt (state.getRawParameterValue (Params::id::colourMap)->load());
    }

    void setIndex (int index)
    {
        auto& parameter = *state.getParameter (Params::id::colourMap);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (float (index)));
    }

    /** Opens the list and returns its window. */
    [[nodiscard]] juce::Component* open()
    {
        control.showPopup();
        auto* const menu = juce::ModalComponentManager::getInstance()->getModalComponent (0);
        EXPECT_TRUE (menu != nullptr && pumpUntil ([menu] { return menu->isVisible(); }));
        return menu;
    }

    const pluginCore::PluginGlobalSettings settings;
    PluginLookAndFeel style;
    juce::AudioProcessorGraph owner;
    juce::UndoManager undo;
    juce::AudioProcessorValueTreeState state { owner, &undo, "PARAMS", Params::createLayout() };
    std::unique_ptr<test::Window> window;
    test::TestEditor editor { 900, 600 };
    ColourComboBoxControl control { state, Params::id::colourMap };
    test::GestureRecorder heard { *state.getParameter (Params::id::colourMap) };
};

TEST_F (ColourComboBoxControlTest, TheListHasTheMapsInTheirOrder)
{
    auto& box = control.getComboBox();
    ASSERT_EQ (box.getNumItems(), numMaps);

    for (int i = 0; i < numMaps; ++i)
    {
        EXPECT_EQ (box.getItemId (i), i + 1);
        EXPECT_EQ (box.getItemText (i), ColourMapPreviewComponent::getMapName (i));
    }

    EXPECT_EQ (box.getText(), "gray");
    EXPECT_EQ (box.getBounds(), control.getLocalBounds());
    EXPECT_EQ (box.getTitle(), "Colour Map");
}

TEST_F (ColourComboBoxControlTest, TheTextFollowsEveryChangeOfTheParameter)
{
    setIndex (5);
    EXPECT_EQ (control.getComboBox().getText(), "magma");
    std::thread ([this] { setIndex (7); }).join();
    EXPECT_TRUE (pumpUntil ([this] { return control.getComboBox().getText() == "rocket"; }));

    for (const auto reserved : { 46, 100, 127 })
    {
        setIndex (5);
        setIndex (reserved);
        EXPECT_EQ (control.getComboBox().getText(), "gray") << "the map of the picture and the preview: " << reserved;
        EXPECT_EQ (getIndex(), reserved) << "the parameter keeps what the host has set";
    }

    EXPECT_FALSE (settings.getSettings().hasProperty (preferedMap)) << "none of these is the user's choice";
}

TEST_F (ColourComboBoxControlTest, AChoiceIsOneGestureOneTransactionAndRemembered)
{
    control.getComboBox().setSelectedId (8);
    ASSERT_TRUE (pumpUntil ([this] { return getIndex() == 7; }));
    EXPECT_EQ (heard.take(), "[.]");
    EXPECT_EQ (int (settings.getSettings()[preferedMap]), 8);

    control.getComboBox().setSelectedId (3);
    ASSERT_TRUE (pumpUntil ([this] { return getIndex() == 2; }));
    EXPECT_TRUE (undo.undo());
    EXPECT_EQ (getIndex(), 7);
    EXPECT_TRUE (undo.undo());
    EXPECT_EQ (getIndex(), 0);
}

TEST_F (ColourComboBoxControlTest, StepsWrapAroundAndAreRemembered)
{
    control.step (-1);
    ASSERT_TRUE (pumpUntil ([this] { return getIndex() == 45; }));
    EXPECT_EQ (control.getComboBox().getText(), "voltage");
    EXPECT_EQ (int (settings.getSettings()[preferedMap]), 46);
    control.step (1);
    ASSERT_TRUE (pumpUntil ([this] { return getIndex() == 0; }));
    EXPECT_EQ (heard.take(), "[.][.]");

    for (int i = 0; i < 10; ++i)
        control.step (1);

    ASSERT_TRUE (pumpUntil ([this] { return getIndex() == 10; })) << "no step is lost before the message arrives";
}

TEST_F (ColourComboBoxControlTest, ALeftClickOpensTheListAndOthersDoNot)
{
    PeerMouse mouse (*window);
    mouse.click (control.getComboBox(), { 20.0f, 14.0f }, PeerMouse::right);
    mouse.click (control.getComboBox(), { 20.0f, 14.0f }, PeerMouse::left | PeerMouse::ctrl);
    pumpPending();
    EXPECT_FALSE (control.getComboBox().isPopupActive());
    mouse.click (control.getComboBox(), { 20.0f, 14.0f });
    EXPECT_TRUE (pumpUntil ([this] { return control.getComboBox().isPopupActive(); }));
    pumpPending();
}

TEST_F (ColourComboBoxControlTest, TheListOpensAgainAndAgain)
{
    for (int i = 0; i < 5; ++i)
    {
        ASSERT_NE (open(), nullptr);
        juce::PopupMenu::dismissAllActiveMenus();
        ASSERT_TRUE (pumpUntil ([this] { return ! control.getComboBox().isPopupActive(); }));
    }
}

TEST_F (ColourComboBoxControlTest, TheEntriesScaleWithTheEditorThatTheBoxIsIn)
{
    auto* const menu = open();
    ASSERT_NE (menu, nullptr);
    const auto rows = menu->getChildren();
    const auto ideal = ColourMapMenuItem::getIdealBounds (900);
    auto numRows = 0;

    for (auto* row : rows)
    {
        if (dynamic_cast<ColourMapMenuItem*> (row->getChildComponent (0)) != nullptr)
        {
            ++numRows;
            EXPECT_EQ (row->getHeight(), ideal.getHeight());
            EXPECT_GE (row->getWidth(), ideal.getWidth());
        }
    }

    EXPECT_EQ (numRows, numMaps);
}

TEST_F (ColourComboBoxControlTest, KeysWalkThroughTheListAndChoose)
{
    setIndex (3);
    static_cast<void> (heard.take());
    auto* const menu = open();
    ASSERT_NE (menu, nullptr);
    EXPECT_TRUE (menu->keyPressed (juce::KeyPress (juce::KeyPress::downKey)));
    EXPECT_TRUE (menu->keyPressed (juce::KeyPress (juce::KeyPress::downKey)));
    EXPECT_TRUE (menu->keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_TRUE (pumpUntil ([this] { return getIndex() == 5; })) << getIndex();
    EXPECT_EQ (heard.take(), "[.]");
}

TEST_F (ColourComboBoxControlTest, EscapeClosesTheListWithoutAChoice)
{
    auto* const menu = open();
    ASSERT_NE (menu, nullptr);
    EXPECT_TRUE (menu->keyPressed (juce::KeyPress (juce::KeyPress::downKey)));
    EXPECT_TRUE (menu->keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_TRUE (pumpUntil ([this] { return ! control.getComboBox().isPopupActive(); }));
    pumpPending();
    EXPECT_EQ (heard.take(), "");
}

TEST_F (ColourComboBoxControlTest, TheLastEntryIsReachedByScrolling)
{
    // Everything runs on the message thread, which is so slow under the sanitizer that the menu loses the focus.
    if (test::hasThreadSanitizer)
        GTEST_SKIP() << "not under ThreadSanitizer";

    editor.setSize (1818, 600);
    juce::Component::SafePointer<juce::Component> menu, last;

    // JUCE closes a menu when the display's focus goes elsewhere, which a slow test sees while the window is mapped: the
    // list is then opened anew.
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            if (menu == nullptr)
            {
                menu = open();
                last = menu != nullptr ? menu->getChildComponent (numMaps - 1) : nullptr;

                if (last == nullptr)
                    return false;

                EXPECT_GT (last->getBottom(), menu->getHeight()) << "46 entries of 50 pixels do not fit";
                window->getPeer()->handleKeyPress (juce::KeyPress (juce::KeyPress::upKey)); // from first to last
            }

            return last != nullptr && last->getBottom() <= menu->getHeight() && last->getY() >= 0;
        }));
}

TEST_F (ColourComboBoxControlTest, TheWheelScrollsTheOpenList)
{
    // Everything runs on the message thread, which is too slow under the sanitizer to keep up with the mouse.
    if (test::hasThreadSanitizer)
        GTEST_SKIP() << "not under ThreadSanitizer";

    editor.setSize (1818, 600);
    auto* const menu = open();
    ASSERT_NE (menu, nullptr);
    auto* const first = menu->getChildComponent (0);
    const auto before = first->getY();

    auto& screen = test::Screen::getInstance();
    const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
    const auto middle = menu->localPointToGlobal (menu->getLocalBounds().getCentre());
    ASSERT_TRUE (pumpUntil (
        [&, tries = 0]() mutable
        {
            if (tries++ % 10 == 0)
                screen.moveMouseTo (middle + juce::Point { tries % 20, 0 });

            auto* const under = mouse.getComponentUnderMouse();
            return under != nullptr && menu->isParentOf (under);
        }));

    constexpr int wheelUp = 4, wheelDown = 5;

    const auto turn = [&screen] (int direction)
    {
        screen.setButton (direction, true);
        screen.setButton (direction, false);
    };

    turn (wheelDown);
    EXPECT_TRUE (pumpUntil ([&] { return first->getY() < before; })) << first->getY();
    turn (wheelUp);
    EXPECT_TRUE (pumpUntil ([&] { return first->getY() >= before; })) << first->getY();
    EXPECT_EQ (heard.take(), "") << "scrolling chooses nothing";
}

TEST_F (ColourComboBoxControlTest, TheArrowsStepFromAReservedValueAsFromTheFirstMap)
{
    for (const auto& [distance, expected] : { std::pair (1, 1), { -1, numMaps - 1 } })
    {
        setIndex (100);
        control.step (distance);
        EXPECT_TRUE (pumpUntil ([this, wanted = expected] { return getIndex() == wanted; })) << getIndex();
    }
}

TEST_F (ColourComboBoxControlTest, ItCanBeDestroyedWhileTheListIsOpen)
{
    auto shortLived = std::make_unique<ColourComboBoxControl> (state, Params::id::colourMap);
    editor.addAndMakeVisible (*shortLived);
    shortLived->setBounds (50, 100, 126, 28);
    shortLived->showPopup();
    const auto getNumMenus = [] { return juce::ModalComponentManager::getInstance()->getNumModalComponents(); };
    ASSERT_EQ (getNumMenus(), 1);

    shortLived.reset();
    EXPECT_TRUE (pumpUntil ([&] { return getNumMenus() == 0; })) << "the list is closed too";
    EXPECT_EQ (heard.take(), "");
    EXPECT_EQ (getIndex(), 0);
}

TEST_F (ColourComboBoxControlTest, AnUnknownParameterIsNotSet)
{
    ColourComboBoxControl unknown { state, "nothing" };
    unknown.step (1);
    pumpPending();
    EXPECT_EQ (heard.take(), "");
    EXPECT_EQ (unknown.getComboBox().getNumItems(), numMaps);
}

} // namespace
} // namespace mk::orlo
