// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/orlo/SettingsInWindow.h"

#include "orlo/Params.h"

namespace mk::orlo::test
{
namespace
{
/** Counts what the host hears of all parameters. */
struct GestureCounter final : juce::AudioProcessorListener
{
    explicit GestureCounter (juce::AudioProcessor& processorToHear) : processor (processorToHear)
    {
        processor.addListener (this);
    }

    ~GestureCounter() override { processor.removeListener (this); }

    void audioProcessorParameterChanged (juce::AudioProcessor*, int, float) override { ++numChanges; }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int) override { ++numBegun; }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int) override { ++numEnded; }

    juce::AudioProcessor& processor;
    int numChanges = 0, numBegun = 0, numEnded = 0;
};

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

    // The panel has been opened without the button, which is off so far.
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

TEST_F (SettingsInWindowTest, TheArrowsStepThroughTheColourMaps)
{
    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    clickOn (arrows.getNextButton());
    EXPECT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 1; }));
    clickOn (arrows.getPreviousButton());
    EXPECT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 0; }));
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
