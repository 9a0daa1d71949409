// SPDX-License-Identifier: AGPL-3.0-or-later
// Operates the window only with the keyboard; needs a display.
#include "EditorInWindow.h"
#include "tests/support/FindComponents.h"

#include "orlo/controls/RetinaParamLabel.h"

#include <set>

namespace mk::orlo::test
{
namespace
{

class EditorKeysTest : public EditorInWindowTest
{
protected:
    [[nodiscard]] static juce::Component* getFocus() { return juce::Component::getCurrentlyFocusedComponent(); }

    /** Presses Tab and waits until the focus has moved on. */
    [[nodiscard]] bool pressTab()
    {
        const auto* const before = getFocus();
        window->typeKey (Screen::tabKey);
        return pumpUntil ([before] { return getFocus() != before; });
    }

    /** The components that Tab visits until it returns to the first one. */
    [[nodiscard]] std::set<juce::Component*> walk()
    {
        std::set<juce::Component*> visited;
        juce::Component* first = nullptr;

        // Some components exist only while they have the focus, such as the editors of values, so limit the steps.
        for (int steps = 0; steps < 100 && pressTab() && getFocus() != first; ++steps)
        {
            visited.insert (getFocus());
            first = first != nullptr ? first : getFocus();
        }

        return visited;
    }

    /** Presses Tab until it reaches the component. Returns false if it never does. */
    [[nodiscard]] bool tabTo (const juce::Component& component)
    {
        for (int tries = 0; tries < 50 && getFocus() != &component; ++tries)
            if (! pressTab())
                return false;

        return getFocus() == &component;
    }

    /** Finds all components of the window with which the mouse can set or open something. */
    [[nodiscard]] std::set<juce::Component*> findControls()
    {
        std::set<juce::Component*> controls;

        const auto isControl = [] (const juce::Component& component)
        {
            return dynamic_cast<const juce::Button*> (&component) != nullptr
                   || dynamic_cast<const juce::Slider*> (&component) != nullptr
                   || dynamic_cast<const juce::ComboBox*> (&component) != nullptr
                   || dynamic_cast<const RetinaParamLabel*> (&component) != nullptr;
        };

        const std::function<void (juce::Component&)> collect = [&] (juce::Component& component)
        {
            if (isControl (component) && component.isShowing())
                controls.insert (&component);

            for (auto* const child : component.getChildren())
                collect (*child);
        };

        collect (*window->editor);
        return controls;
    }

    void expectToReachAllControls (size_t numExpected)
    {
        const auto visited = walk();
        const auto controls = findControls();
        EXPECT_EQ (controls.size(), numExpected);

        for (auto* const control : controls)
            EXPECT_TRUE (visited.contains (control)) << control->getName() << " / " << control->getTitle();
    }

    /** A part of the settings panel. */
    template <typename Type>
    [[nodiscard]] Type& getSetting (const juce::String& id)
    {
        auto* const part = findInside<juce::Component> (window->getMain().getSettingsPanel(),
                                                        [&] (const juce::Component& candidate)
                                                        { return candidate.getComponentID() == id; });
        return dynamic_cast<Type*> (part) != nullptr ? dynamic_cast<Type&> (*part) : *findInside<Type> (*part);
    }

    [[nodiscard]] juce::Button& getSideBarButton (const juce::String& name)
    {
        return *findInside<juce::Button> (window->getMain().getSideBar(),
                                          [&] (const juce::Component& button) { return button.getName() == name; });
    }
};

TEST_F (EditorKeysTest, TabReachesAllControlsOfTheStandardView)
{
    set (Params::id::freeze, 1.0f);
    ASSERT_TRUE (pumpUntil ([this] { return getSideBarButton ("export").isShowing(); }));
    ASSERT_TRUE (window->moveAway());

    expectToReachAllControls (5); // four in the side bar, and the view button
}

TEST_F (EditorKeysTest, TabReachesAllControlsOfTheSettingsPanel)
{
    window->getMain().setSettingsWanted (true);
    window->getMain().getSettingsPanel().setOnRetinaDisplay (true);
    ASSERT_TRUE (window->moveAway());

    // Three in the side bar, and the view button. In the panel the presets, two bars of two, the resolution,
    // three toggles, three boxes, five sliders and two arrows.
    expectToReachAllControls (4 + 19);
}

TEST_F (EditorKeysTest, TabReachesTheButtonsOfTheFullView)
{
    set (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (pumpUntil ([this] { return window->getMain().getExportButton().isShowing(); }));
    ASSERT_TRUE (window->moveAway());

    expectToReachAllControls (3);
}

//==============================================================================
TEST_F (EditorKeysTest, ReturnPressesTheButtonsOfTheSideBar)
{
    ASSERT_TRUE (window->moveAway());
    auto& main = window->getMain();

    for (const auto isOpen : { true, false })
    {
        ASSERT_TRUE (tabTo (getSideBarButton ("settings")));
        window->typeKey (Screen::returnKey);
        EXPECT_TRUE (pumpUntil ([&] { return main.getSettingsPanel().isVisible() == isOpen; }));
    }

    ASSERT_TRUE (tabTo (getSideBarButton ("freeze")));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([this] { return get (Params::id::freeze) >= 0.5f; }));

    ASSERT_TRUE (tabTo (getSideBarButton ("about")));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return main.getAboutComponent().isVisible(); }));
    window->typeKey (Screen::escapeKey);
    EXPECT_TRUE (pumpUntil ([&] { return ! main.getAboutComponent().isVisible(); }));
}

TEST_F (EditorKeysTest, ReturnPressesTheButtonsOfTheFullView)
{
    set (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    auto& main = window->getMain();
    ASSERT_TRUE (pumpUntil ([&] { return main.getFreezeButton().isShowing(); }));
    ASSERT_TRUE (window->moveAway());

    ASSERT_TRUE (tabTo (main.getFreezeButton()));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([this] { return get (Params::id::freeze) < 0.5f; }));

    // The focused button has disappeared, and Tab must still reach the others.
    ASSERT_TRUE (pumpUntil ([&] { return ! main.getFreezeButton().isVisible(); }));
    ASSERT_TRUE (tabTo (main.getViewButton()));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([this] { return ! processor.getUIView().cleanViewMode.get(); }));
}

TEST_F (EditorKeysTest, EachKindOfSettingCanBeChangedByKeys)
{
    window->getMain().setSettingsWanted (true);
    ASSERT_TRUE (window->moveAway());

    ASSERT_TRUE (tabTo (getSetting<juce::Button> ("rulerToggle")));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([this] { return get (Params::id::ruler) < 0.5f; }));

    ASSERT_TRUE (tabTo (getSetting<ButtonBarComponent> ("drawModeBar").getButton (0)));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([this] { return get (Params::id::drawMode) < 0.5f; }));

    const auto speed = get (Params::id::speed);
    ASSERT_TRUE (tabTo (getSetting<juce::Slider> ("speedSlider")));
    window->typeKey (Screen::downKey);
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::speed) < speed; }));

    auto& scale = getSetting<juce::ComboBox> ("scaleBox");
    const auto type = get (Params::id::freqScale);
    ASSERT_TRUE (tabTo (scale));
    window->typeKey (Screen::downKey);
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::freqScale) != type; }));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return scale.isPopupActive(); }));
    window->typeKey (Screen::escapeKey);
    EXPECT_TRUE (waitUntilNoMenu());
}

TEST_F (EditorKeysTest, ASliderIsOneStopOfTheTabKey)
{
    window->getMain().setSettingsWanted (true);
    ASSERT_TRUE (window->moveAway());
    auto& speed = getSetting<juce::Slider> ("speedSlider");
    ASSERT_TRUE (tabTo (speed));

    for (const auto* const id : { "maxFreqSlider", "minFreqSlider" })
    {
        ASSERT_TRUE (pressTab());
        EXPECT_EQ (getFocus(), &getSetting<juce::Slider> (id)) << id;
    }
}

TEST_F (EditorKeysTest, ReturnEditsTheTextOfASliderAndGivesTheKeyboardBackToIt)
{
    window->getMain().setSettingsWanted (true);
    ASSERT_TRUE (window->moveAway());
    auto& slider = getSetting<juce::Slider> ("speedSlider");
    const auto isEdited = [&] { return dynamic_cast<juce::TextEditor*> (getFocus()) != nullptr; };

    for (const auto& [digit, lastKey] : { std::pair (0x37ul, Screen::returnKey), { 0x39ul, Screen::escapeKey } })
    {
        ASSERT_TRUE (tabTo (slider));
        window->typeKey (Screen::returnKey);
        ASSERT_TRUE (pumpUntil (isEdited));
        EXPECT_TRUE (slider.isParentOf (getFocus()));

        // Typing replaces the whole text.
        window->typeKey (digit);
        ASSERT_TRUE (pumpUntil (
            [&] { return isEdited() && dynamic_cast<juce::TextEditor&> (*getFocus()).getText().length() == 1; }));
        window->typeKey (lastKey);
        EXPECT_TRUE (pumpUntil ([&] { return getFocus() == &slider; }));
        EXPECT_NEAR (get (Params::id::speed), 7.0f, 1.0e-3f) << "Escape discards what was typed";
    }
}

TEST_F (EditorKeysTest, TabInTheTextOfASliderGoesOnToTheNextOne)
{
    window->getMain().setSettingsWanted (true);
    ASSERT_TRUE (window->moveAway());
    auto& slider = getSetting<juce::Slider> ("speedSlider");
    ASSERT_TRUE (tabTo (slider));
    window->typeKey (Screen::returnKey);
    ASSERT_TRUE (pumpUntil ([&] { return slider.isParentOf (getFocus()); }));
    window->typeKey (Screen::tabKey);
    EXPECT_TRUE (pumpUntil ([this] { return getFocus() == &getSetting<juce::Slider> ("maxFreqSlider"); }));
}

TEST_F (EditorKeysTest, TheTabKeyReachesTheViewButtonAndReturnUsesIt)
{
    ASSERT_TRUE (window->moveAway());
    auto& button = window->getMain().getViewButton();

    ASSERT_TRUE (pumpUntil (
        [&, tries = 0]() mutable
        {
            if (tries++ % 10 == 0)
                window->typeKey (Screen::tabKey);

            return button.hasKeyboardFocus (false);
        }));

    EXPECT_TRUE (button.isVisible());
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return processor.getUIView().cleanViewMode.get(); }));
}

TEST_F (EditorKeysTest, UnusedKeysAreLeftToTheHost)
{
    ASSERT_TRUE (window->click (window->getPicture()));
    pumpPending();
    EXPECT_EQ (dynamic_cast<juce::Button*> (juce::Component::getCurrentlyFocusedComponent()), nullptr)
        << "a focused button would use the space bar";

    auto& peer = *window->editor->getPeer();

    for (const auto key : { int ('q'), int ('1'), juce::KeyPress::F5Key, juce::KeyPress::spaceKey })
        EXPECT_FALSE (peer.handleKeyPress (juce::KeyPress (key))) << key;
}

//==============================================================================
TEST_F (EditorKeysTest, TheMenuKeyAndShiftF10OpenTheMenuOfThePictureReachedByTab)
{
    ASSERT_TRUE (window->moveAway());
    auto& picture = window->getPicture();
    ASSERT_TRUE (tabTo (picture));

    for (const auto isMenuKey : { true, false })
    {
        if (isMenuKey)
        {
            window->typeKey (Screen::menuKey);
        }
        else
        {
            ASSERT_TRUE (holdModifier (Screen::shiftKey, juce::ModifierKeys::shiftModifier));
            window->typeKey (Screen::f10Key);
            window->releaseAll();
        }

        ASSERT_TRUE (waitForMenu()) << (isMenuKey ? "Menu" : "Shift+F10");
        EXPECT_TRUE (picture.getScreenBounds().contains (findOpenMenu()->getScreenPosition()));
        window->typeKey (Screen::escapeKey);
        ASSERT_TRUE (waitUntilNoMenu());
        EXPECT_TRUE (pumpUntil ([&] { return getFocus() == &picture; })) << "the focus returns to where it was";
    }
}

TEST_F (EditorKeysTest, TheMenuKeyOpensThePicturesMenuAndReturnChoosesFromIt)
{
    ASSERT_TRUE (window->moveAway());
    ASSERT_TRUE (tabTo (window->getPicture()));
    window->typeKey (Screen::menuKey);
    ASSERT_TRUE (waitForMenu());
    window->typeKey (Screen::returnKey);
    ASSERT_TRUE (waitUntilNoMenu());
    EXPECT_TRUE (pumpUntil ([this] { return get (Params::id::freeze) >= 0.5f; })) << "Return chooses the first entry";
}

TEST_F (EditorKeysTest, TheMenuKeyOpensThePicturesMenuWhileTheFocusIsOnTheWindowItself)
{
    ASSERT_TRUE (window->moveAway());
    window->getMain().grabKeyboardFocus();
    ASSERT_TRUE (pumpUntil ([this] { return getFocus() == &window->getMain(); }));
    window->typeKey (Screen::menuKey);
    ASSERT_TRUE (waitForMenu());
    window->typeKey (Screen::escapeKey);
    EXPECT_TRUE (waitUntilNoMenu());
}

TEST_F (EditorKeysTest, TheMenuKeyOpensNothingWhileAnotherControlHasTheFocus)
{
    ASSERT_TRUE (window->moveAway());
    auto& button = getSideBarButton ("about");
    ASSERT_TRUE (tabTo (button));
    window->typeKey (Screen::menuKey);
    window->typeKey (Screen::returnKey);

    // Keys are handled in order, so once the button has handled Return, the menu key has been handled too.
    ASSERT_TRUE (pumpUntil ([this] { return window->getMain().getAboutComponent().isVisible(); }));
    EXPECT_EQ (findOpenMenu(), nullptr);
}

TEST_F (EditorKeysTest, AClickOnThePictureDoesNotFocusIt)
{
    ASSERT_TRUE (window->click (window->getPicture()));
    pumpPending();
    EXPECT_NE (getFocus(), &window->getPicture());
}

TEST_F (EditorKeysTest, ThePictureHasANameARoleAndAHelpText)
{
    const auto* const handler = window->getPicture().getAccessibilityHandler();
    ASSERT_NE (handler, nullptr);
    EXPECT_EQ (handler->getTitle(), juce::translate ("Spectrogram"));
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::image);
    EXPECT_EQ (handler->getDescription(), juce::translate ("The frequencies of the sound over time"));
    EXPECT_EQ (handler->getHelp(), juce::translate ("Press the Menu key or Shift+F10 to open the menu"));
    EXPECT_TRUE (handler->getCurrentState().isFocusable());

    ASSERT_TRUE (handler->getActions().invoke (juce::AccessibilityActionType::showMenu));
    ASSERT_TRUE (waitForMenu());
    window->typeKey (Screen::escapeKey);
    EXPECT_TRUE (waitUntilNoMenu());
}

TEST_F (EditorKeysTest, EveryButtonHasAnAccessibleName)
{
    set (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    pumpPending();

    std::function<void (juce::Component&)> check = [&] (juce::Component& component)
    {
        if (dynamic_cast<juce::Button*> (&component) != nullptr)
        {
            const auto* const handler = component.getAccessibilityHandler();
            EXPECT_TRUE (handler == nullptr || handler->getTitle().isNotEmpty()) << component.getName();
        }

        for (auto* const child : component.getChildren())
            check (*child);
    };

    check (*window->editor);
}

} // namespace
} // namespace mk::orlo::test
