// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that each action of the user on a control is one undo step; needs a display.
#include "SettingsInWindow.h"

#include "orlo/parameters/Params.h"
#include "tests/support/FindComponents.h"

namespace mk::orlo::test
{
namespace
{
class SettingsUndoTest : public SettingsInWindowTest
{
protected:
    SettingsUndoTest()
    {
        processor.applyInitialSettings();
        panel.setOnRetinaDisplay (true);
    }

    ~SettingsUndoTest() override
    {
        juce::PopupMenu::dismissAllActiveMenus();
        pumpPending();
    }

    /** Changes a parameter as the user does, then another one at once, and undoes both. */
    void expectOneStep (const juce::String& id, const std::function<void()>& act)
    {
        SCOPED_TRACE (id);
        pumpPending();
        undo.clearUndoHistory();
        const auto before = getValue (id);
        act();
        ASSERT_TRUE (pumpUntil ([&] { return ! juce::approximatelyEqual (getValue (id), before); }));
        pumpPending();
        const auto after = getValue (id);

        auto& other = slider (id == Params::id::speed ? "ceilingSlider" : "speedSlider");
        const auto otherValue = other.getValue();
        ASSERT_TRUE (other.keyPressed (juce::KeyPress (juce::KeyPress::leftKey)));
        ASSERT_NE (other.getValue(), otherValue);

        ASSERT_TRUE (undo.undo());
        EXPECT_EQ (other.getValue(), otherValue);
        EXPECT_FLOAT_EQ (getValue (id), after);
        ASSERT_TRUE (undo.undo());
        EXPECT_FLOAT_EQ (getValue (id), before);
        EXPECT_FALSE (undo.canUndo());
    }

    void drag (const char* id)
    {
        auto& control = child (id);
        const auto from = control.getLocalBounds().getCentre().toFloat();
        const auto towards = slider (id).getValue() < slider (id).getMaximum() ? 1.0f : -1.0f;
        PeerMouse mouse (*window);
        mouse.press (control, from);
        mouse.drag (control, from.translated (10.0f * towards, 0.0f));
        mouse.drag (control, from.translated (20.0f * towards, 0.0f));
        mouse.release (control, from.translated (20.0f * towards, 0.0f));
    }

    /** Opens a box's list and chooses the entry after the current one. */
    void chooseNext (const char* id)
    {
        clickOn (child (id));
        chooseNextInOpenList();
    }

    static void chooseNextInOpenList()
    {
        ASSERT_TRUE (pumpUntil ([] { return juce::Component::getCurrentlyModalComponent() != nullptr; }));
        auto& menu = *juce::Component::getCurrentlyModalComponent();
        menu.keyPressed (juce::KeyPress (juce::KeyPress::downKey));
        menu.keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    }

    juce::UndoManager& undo = processor.getUndoManager();
};

TEST_F (SettingsUndoTest, ADragOfASliderIsOneStep)
{
    for (const auto& [control, id] : sliders)
        expectOneStep (id, [this, name = control] { drag (name); });
}

TEST_F (SettingsUndoTest, ATypedValueIsOneStep)
{
    processor.prepareToPlay (44100.0, 64);
    ASSERT_TRUE (pumpUntil ([this] { return valueText ("maxFreqSlider") == "22050 Hz"; }));

    for (const auto& [control, id] : sliders)
    {
        expectOneStep (id,
                       [this, name = control]
                       {
                           auto& label = inner<juce::Label> (name);
                           label.showEditor();
                           label.getCurrentTextEditor()->setText ("33", false);
                           label.hideEditor (false);
                       });
    }
}

TEST_F (SettingsUndoTest, AnArrowKeyOnASliderIsOneStep)
{
    for (const auto& [control, id] : sliders)
        expectOneStep (id,
                       [this, name = control]
                       {
                           auto& widget = slider (name);
                           const auto isAtEnd = widget.getValue() >= widget.getMaximum();
                           widget.keyPressed (
                               juce::KeyPress (isAtEnd ? juce::KeyPress::leftKey : juce::KeyPress::rightKey));
                       });
}

TEST_F (SettingsUndoTest, AClickOnASwitchIsOneStep)
{
    const auto button = [this] (const char* bar, int index) -> juce::Component&
    { return dynamic_cast<ButtonBarComponent&> (child (bar)).getButton (index); };

    const auto other = [this] (const char* id) { return getValue (id) < 0.5f ? 1 : 0; };

    expectOneStep (Params::id::mode, [&] { clickOn (button ("modeBar", other (Params::id::mode))); });
    expectOneStep (Params::id::drawMode, [&] { clickOn (button ("drawModeBar", other (Params::id::drawMode))); });
    expectOneStep (Params::id::autoFreeze, [this] { clickOn (child ("autoFreezeToggle")); });
    expectOneStep (Params::id::keyboard, [this] { clickOn (child ("keyboardToggle")); });
    expectOneStep (Params::id::ruler, [this] { clickOn (child ("rulerToggle")); });
    expectOneStep (Params::id::hiDPI, [this] { clickOn (child ("hiDPILabel")); });
}

TEST_F (SettingsUndoTest, AChoiceFromAListIsOneStep)
{
    expectOneStep (Params::id::fftSize, [this] { chooseNext ("fftSizeBox"); });
    expectOneStep (Params::id::freqScale, [this] { chooseNext ("scaleBox"); });
    expectOneStep (Params::id::colourMap, [this] { chooseNext ("colourBox"); });
    expectOneStep (Params::id::colourMap, [this] { chooseNext ("colourPreview"); });
}

TEST_F (SettingsUndoTest, AnArrowBesideTheColoursIsOneStep)
{
    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    expectOneStep (Params::id::colourMap, [&] { clickOn (arrows.getNextButton()); });
    expectOneStep (Params::id::colourMap, [&] { clickOn (arrows.getPreviousButton()); });
}

TEST_F (SettingsUndoTest, FreezingIsOneStepInBothViews)
{
    auto& main = editor.getMainComponent();
    auto* const inSideBar = findInside<juce::Button> (
        main.getSideBar(), [] (const auto& button) { return button.getName() == Params::id::freeze; });
    ASSERT_NE (inSideBar, nullptr);
    expectOneStep (Params::id::freeze, [&] { clickOn (*inSideBar); });

    setNormalised (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (pumpUntil ([&] { return main.getFreezeButton().isShowing(); }));
    static_cast<void> (processor.getParameterState().copyState());
    expectOneStep (Params::id::freeze, [&] { clickOn (main.getFreezeButton()); });
}
} // namespace
} // namespace mk::orlo::test
