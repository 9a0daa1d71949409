// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsInWindow.h"

#include "orlo/analysis/ColourMap.h"
#include "orlo/parameters/Params.h"
#include "tests/support/GestureCounter.h"
#include "tests/support/StyledWindow.h"

#include <thread>

namespace mk::orlo::test
{
namespace
{
TEST_F (SettingsInWindowTest, TheSideBarsButtonOpensAndClosesThePanel)
{
    auto& sideBar = editor.getMainComponent().getSideBar();
    juce::Button* settingsButton = nullptr;
    forEachBelow (sideBar,
                  [&] (juce::Component& component)
                  {
                      if (component.getName() == "settings")
                          settingsButton = dynamic_cast<juce::Button*> (&component);
                  });
    ASSERT_NE (settingsButton, nullptr);

    // The panel has been opened without the button, so the button is still off.
    clickOn (*settingsButton);
    EXPECT_TRUE (panel.isVisible());
    clickOn (*settingsButton);
    EXPECT_FALSE (panel.isVisible());
    clickOn (*settingsButton);
    EXPECT_TRUE (panel.isVisible());
    clickOn (*settingsButton, PeerMouse::right);
    EXPECT_TRUE (panel.isVisible());
}

TEST_F (SettingsInWindowTest, AClickOnEachSwitchIsOneGesture)
{
    const auto classic = [this]() -> juce::Component&
    { return dynamic_cast<ButtonBarComponent&> (child ("modeBar")).getButton (0); };
    const auto scroll = [this]() -> juce::Component&
    { return dynamic_cast<ButtonBarComponent&> (child ("drawModeBar")).getButton (1); };

    for (const auto& [component, id, value] :
         { std::tuple<juce::Component*, const char*, float> (&classic(), Params::id::mode, 0.0f),
           { &scroll(), Params::id::drawMode, 1.0f },
           { &child ("autoFreezeToggle"), Params::id::autoFreeze, 1.0f },
           { &child ("keyboardToggle"), Params::id::keyboard, 1.0f },
           { &child ("rulerToggle"), Params::id::ruler, 1.0f } })
    {
        const GestureCounter counter (processor);
        clickOn (*component, PeerMouse::right);
        EXPECT_EQ (counter.numBegun, 0) << id;

        clickOn (*component);
        EXPECT_TRUE (pumpUntil ([&, wanted = value, parameter = id]
                                { return juce::approximatelyEqual (getValue (parameter), wanted); }))
            << id;
        EXPECT_EQ (counter.numBegun, 1) << id;
        EXPECT_EQ (counter.numEnded, 1) << id;
        EXPECT_EQ (counter.numChanges, 1) << id;
    }
}

TEST_F (SettingsInWindowTest, ADragMovesASliderAndADoubleClickResetsIt)
{
    auto& control = child ("speedSlider");
    const auto middle = control.getLocalBounds().getCentre().toFloat();
    const GestureCounter counter (processor);
    PeerMouse mouse (*window);

    mouse.press (control, middle);
    mouse.drag (control, middle.translated (20.0f, 0.0f));
    mouse.drag (control, middle.translated (40.0f, 0.0f));
    mouse.release (control, middle.translated (40.0f, 0.0f));
    EXPECT_TRUE (pumpUntil ([this] { return getValue (Params::id::speed) > 45.0f; })) << getValue (Params::id::speed);
    EXPECT_EQ (counter.numBegun, 1);
    EXPECT_EQ (counter.numEnded, 1);

    mouse.doubleClick (control, middle);
    EXPECT_TRUE (pumpUntil ([this] { return juce::approximatelyEqual (getValue (Params::id::speed), 40.0f); }))
        << getValue (Params::id::speed);
    EXPECT_EQ (counter.numBegun, counter.numEnded);
}

TEST_F (SettingsInWindowTest, ADoubleClickResetsEachSlider)
{
    for (const auto& [name, id] : sliders)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        setNormalised (id, 0.37f);
        pumpPending();

        auto& control = child (name);
        const GestureCounter counter (processor);
        PeerMouse (*window).doubleClick (control, control.getLocalBounds().getCentre().toFloat());
        EXPECT_TRUE (
            pumpUntil ([&] { return juce::approximatelyEqual (parameter.getValue(), parameter.getDefaultValue()); }))
            << name << ": " << parameter.getValue();
        EXPECT_GE (counter.numBegun, 1) << name;
        EXPECT_EQ (counter.numBegun, counter.numEnded) << name;
        EXPECT_FALSE (inner<juce::Label> (name).isBeingEdited()) << name;
    }
}

TEST_F (SettingsInWindowTest, TheWheelMovesTheSliderUnderTheMouse)
{
    for (const auto& [name, id] : sliders)
    {
        setNormalised (id, 0.5f);
        pumpPending();

        auto& control = child (name);
        const auto middle = control.getLocalBounds().getCentre().toFloat();
        const auto before = getValue (id);
        const GestureCounter counter (processor);
        PeerMouse mouse (*window);
        mouse.turnWheel (control, middle, 0.2f);
        EXPECT_TRUE (pumpUntil ([&, parameter = id] { return getValue (parameter) > before; })) << name;
        mouse.turnWheel (control, middle, -0.4f);
        EXPECT_TRUE (pumpUntil ([&, parameter = id] { return getValue (parameter) < before; })) << name;
        EXPECT_EQ (counter.numBegun, 2) << name;
        EXPECT_EQ (counter.numEnded, 2) << name;
    }
}

TEST_F (SettingsInWindowTest, TheArrowKeysMoveTheSliderThatHasTheFocus)
{
    window->toFront (true);
    ASSERT_TRUE (pumpUntil ([this] { return window->getPeer()->isFocused(); }));

    for (const auto& [name, id] : sliders)
    {
        setNormalised (id, 0.5f);
        slider (name).grabKeyboardFocus();
        ASSERT_TRUE (pumpUntil ([&, control = name] { return slider (control).hasKeyboardFocus (false); })) << name;

        const auto before = getValue (id);
        const GestureCounter counter (processor);

        for (const auto key : { juce::KeyPress::upKey, juce::KeyPress::rightKey })
            EXPECT_TRUE (window->getPeer()->handleKeyPress (juce::KeyPress (key))) << name;

        EXPECT_GT (getValue (id), before) << name;

        for (const auto key : { juce::KeyPress::downKey, juce::KeyPress::leftKey })
            EXPECT_TRUE (window->getPeer()->handleKeyPress (juce::KeyPress (key))) << name;

        EXPECT_NEAR (getValue (id), before, 1.0e-3f) << name;
        EXPECT_EQ (counter.numBegun, 4) << name;
        EXPECT_EQ (counter.numEnded, 4) << name;
    }
}

TEST_F (SettingsInWindowTest, OtherClicksEditNothingAnywhere)
{
    panel.setOnRetinaDisplay (true);
    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    auto& modeBar = dynamic_cast<ButtonBarComponent&> (child ("modeBar"));
    auto& drawModeBar = dynamic_cast<ButtonBarComponent&> (child ("drawModeBar"));
    const GestureCounter counter (processor);

    for (auto* const component : { static_cast<juce::Component*> (&modeBar.getButton (0)),
                                   static_cast<juce::Component*> (&modeBar.getButton (1)),
                                   static_cast<juce::Component*> (&drawModeBar.getButton (0)),
                                   static_cast<juce::Component*> (&drawModeBar.getButton (1)),
                                   &child ("hiDPILabel"),
                                   &child ("autoFreezeToggle"),
                                   &child ("keyboardToggle"),
                                   &child ("rulerToggle"),
                                   &child ("fftSizeBox"),
                                   &child ("scaleBox"),
                                   &child ("colourBox"),
                                   &child ("colourPreview"),
                                   &child ("presetsButton"),
                                   static_cast<juce::Component*> (&arrows.getPreviousButton()),
                                   static_cast<juce::Component*> (&arrows.getNextButton()) })
    {
        for (const auto modifiers : { PeerMouse::right, PeerMouse::middle, PeerMouse::left | PeerMouse::ctrl })
        {
            clickOn (*component, modifiers);
            pumpPending();
            EXPECT_EQ (counter.numBegun + counter.numChanges, 0) << component->getComponentID() << component->getName();
            EXPECT_EQ (juce::Component::getCurrentlyModalComponent(), nullptr)
                << component->getComponentID() << component->getName();
        }
    }
}

TEST_F (SettingsInWindowTest, ARightDragMovesNoSlider)
{
    for (const auto* const id : { "speedSlider", "maxFreqSlider", "minFreqSlider", "floorSlider", "ceilingSlider" })
    {
        auto& control = child (id);
        const auto middle = control.getLocalBounds().getCentre().toFloat();
        const GestureCounter counter (processor);

        for (const auto modifiers : { PeerMouse::right, PeerMouse::left | PeerMouse::ctrl })
        {
            PeerMouse mouse (*window);
            mouse.press (control, middle, modifiers);
            mouse.drag (control, middle.translated (15.0f, 0.0f), modifiers);
            mouse.release (control, middle.translated (15.0f, 0.0f), modifiers);
        }

        EXPECT_EQ (counter.numBegun, 0) << id;
        EXPECT_EQ (counter.numChanges, 0) << id;
    }
}

TEST_F (SettingsInWindowTest, ThePreviewShowsTheMapWhicheverWayItIsChosen)
{
    processor.applyInitialSettings();
    auto& preview = dynamic_cast<ColourMapPreviewComponent&> (child ("colourPreview"));

    const auto shows = [&] (int map)
    {
        const auto image = snapshotOf (preview);
        const ColourMap colours { unsigned (map) };

        // Samples the positions at which the maps differ most from each other.
        for (const auto share : { 0.25f, 0.5f, 0.75f })
        {
            const auto x = juce::roundToInt (share * float (image.getWidth()));
            const auto level = float (x) / float (image.getWidth() - 1);

            if (distance (image.getPixelAt (x, image.getHeight() / 2),
                          colours.getColours()[ColourMap::entryForLevel (level)])
                > 8)
                return false;
        }

        return true;
    };

    EXPECT_TRUE (shows (0));

    // Choose a map from the menu by keys.
    clickOn (child ("colourBox"));
    ASSERT_TRUE (pumpUntil ([] { return juce::Component::getCurrentlyModalComponent() != nullptr; }));

    for (const auto key : { juce::KeyPress::downKey, juce::KeyPress::downKey, juce::KeyPress::returnKey })
        juce::Component::getCurrentlyModalComponent()->keyPressed (juce::KeyPress (key));

    EXPECT_TRUE (pumpUntil ([&] { return shows (2); })) << preview.getMapIndex();

    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    clickOn (arrows.getPreviousButton());
    EXPECT_TRUE (pumpUntil ([&] { return shows (1); })) << preview.getMapIndex();

    for (const auto map : { 2, 3 })
    {
        clickOn (arrows.getNextButton());
        EXPECT_TRUE (pumpUntil ([&] { return shows (map); })) << preview.getMapIndex();
    }

    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_TRUE (pumpUntil ([&] { return shows (2); })) << preview.getMapIndex();
    EXPECT_TRUE (processor.getUndoManager().redo());
    EXPECT_TRUE (pumpUntil ([&] { return shows (3); })) << preview.getMapIndex();

    // Load a map with a preset.
    auto& presets = processor.getPresetsManager();
    const auto file = presets.getUserFolder().getChildFile ("colours.mkpreset");
    setValue (Params::id::colourMap, 9.0f);
    presets.savePresetFile (file, false);
    setValue (Params::id::colourMap, 5.0f);
    EXPECT_TRUE (pumpUntil ([&] { return shows (5); })) << preview.getMapIndex();
    ASSERT_TRUE (presets.loadPresetFile (file, &processor.getUndoManager()));
    EXPECT_TRUE (pumpUntil ([&] { return shows (9); })) << preview.getMapIndex();

    // Set a map from the host on another thread.
    std::thread ([this] { setValue (Params::id::colourMap, 41.0f); }).join();
    EXPECT_TRUE (pumpUntil ([&] { return shows (41); })) << preview.getMapIndex();
}

TEST_F (SettingsInWindowTest, AClickOnThePreviewOpensTheListOfColourMaps)
{
    auto& box = inner<juce::ComboBox> ("colourBox");
    clickOn (child ("colourPreview"));
    EXPECT_TRUE (pumpUntil ([&] { return box.isPopupActive(); }));
    box.hidePopup();
    EXPECT_TRUE (pumpUntil ([] { return juce::Component::getCurrentlyModalComponent() == nullptr; }));
}
} // namespace
} // namespace mk::orlo::test
