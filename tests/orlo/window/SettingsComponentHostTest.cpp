// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests what the host and screen readers are told about the controls.
#include "orlo/window/SettingsComponent.h"

#include "SettingsPanel.h"
#include "orlo/parameters/Params.h"
#include "tests/support/FindComponents.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
/** A control of the panel and the parameter that it sets. */
struct Control
{
    const char* id;
    const char* parameter;
};

constexpr std::array controls {
    Control { "fftSizeBox", Params::id::fftSize },      Control { "hiDPILabel", Params::id::hiDPI },
    Control { "scaleBox", Params::id::freqScale },      Control { "autoFreezeToggle", Params::id::autoFreeze },
    Control { "keyboardToggle", Params::id::keyboard }, Control { "rulerToggle", Params::id::ruler },
    Control { "speedSlider", Params::id::speed },       Control { "maxFreqSlider", Params::id::maxFreq },
    Control { "minFreqSlider", Params::id::minFreq },   Control { "colourBox", Params::id::colourMap },
    Control { "colourPreview", Params::id::colourMap }, Control { "floorSlider", Params::id::floor },
    Control { "ceilingSlider", Params::id::ceiling },
};

class SettingsComponentHostTest : public SettingsPanelTest
{
protected:
    SettingsComponentHostTest()
    {
        editor.setVisible (true);
        panel.setOnRetinaDisplay (true);
    }

    [[nodiscard]] int indexOf (const char* parameterId)
    {
        return processor.getParameterState().getParameter (parameterId)->getParameterIndex();
    }

    /** Returns the index that a host gets when it asks for the parameter under the mouse at the middle of a
        component. Asks for the innermost child there, as hosts do. */
    [[nodiscard]] int askAtMiddleOf (juce::Component& component)
    {
        auto* const innermost =
            editor.getComponentAt (editor.getLocalPoint (&component, component.getLocalBounds().getCentre()));
        EXPECT_TRUE (innermost != nullptr && (innermost == &component || component.isParentOf (innermost)))
            << component.getName() << " " << component.getComponentID();
        return innermost != nullptr ? editor.getControlParameterIndex (*innermost) : -2;
    }

    [[nodiscard]] juce::Button& buttonOf (const char* bar, int index)
    {
        return dynamic_cast<ButtonBarComponent&> (child (bar)).getButton (index);
    }

    [[nodiscard]] juce::Button& sideBarButton (const juce::String& name)
    {
        return *findInside<juce::Button> (main.getSideBar(),
                                          [&] (const auto& button) { return button.getName() == name; });
    }

    void setFullView (bool shouldBeFull)
    {
        processor.getUIView().cleanViewMode = shouldBeFull;
        EXPECT_TRUE (pumpUntil ([&] { return main.getSideBar().isVisible() != shouldBeFull; }));
    }

    /** The accessibility handler that a screen reader uses for a component. */
    [[nodiscard]] static std::unique_ptr<juce::AccessibilityHandler> handlerOf (juce::Component& component)
    {
        return component.createAccessibilityHandler();
    }

    [[nodiscard]] static juce::String spokenValueOf (juce::Component& component)
    {
        const auto handler = handlerOf (component);
        const auto* const value = handler->getValueInterface();
        return value != nullptr ? value->getCurrentValueAsString() : juce::String ("none");
    }

    MainComponent& main = editor.getMainComponent();
};

//==============================================================================
TEST_F (SettingsComponentHostTest, TheHostFindsTheParameterOfEveryControlUnderTheMouse)
{
    for (const auto& control : controls)
        EXPECT_EQ (askAtMiddleOf (child (control.id)), indexOf (control.parameter)) << control.id;

    for (const auto& [id, parameterId] :
         { std::pair ("modeBar", Params::id::mode), std::pair ("drawModeBar", Params::id::drawMode) })
        for (const auto button : { 0, 1 })
            EXPECT_EQ (askAtMiddleOf (buttonOf (id, button)), indexOf (parameterId)) << id;

    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    EXPECT_EQ (askAtMiddleOf (arrows.getPreviousButton()), indexOf (Params::id::colourMap));
    EXPECT_EQ (askAtMiddleOf (arrows.getNextButton()), indexOf (Params::id::colourMap));
    EXPECT_EQ (askAtMiddleOf (sideBarButton ("freeze")), indexOf (Params::id::freeze));
}

TEST_F (SettingsComponentHostTest, TheHostFindsNoParameterElsewhere)
{
    setNormalised (Params::id::freeze, 1.0f);
    auto& exportButton = sideBarButton ("export");
    ASSERT_TRUE (pumpUntil ([&] { return exportButton.isVisible(); }));

    EXPECT_EQ (askAtMiddleOf (child ("presetsButton")), -1);
    EXPECT_EQ (askAtMiddleOf (sideBarButton ("settings")), -1);
    EXPECT_EQ (askAtMiddleOf (sideBarButton ("about")), -1);
    EXPECT_EQ (askAtMiddleOf (exportButton), -1);
    EXPECT_EQ (askAtMiddleOf (main.getSpectrogramContainer().getSpectrogram()), -1);

    for (auto* const component : { static_cast<juce::Component*> (&panel),
                                   static_cast<juce::Component*> (&main),
                                   static_cast<juce::Component*> (&child ("speedLabel")),
                                   static_cast<juce::Component*> (&editor) })
        EXPECT_EQ (editor.getControlParameterIndex (*component), -1);
}

TEST_F (SettingsComponentHostTest, TheHostFindsTheParameterOfTheFreezeButtonInFullView)
{
    setNormalised (Params::id::freeze, 1.0f);
    setFullView (true);
    ASSERT_TRUE (pumpUntil ([this] { return main.getFreezeButton().isVisible(); }));
    EXPECT_EQ (askAtMiddleOf (main.getFreezeButton()), indexOf (Params::id::freeze));
    EXPECT_EQ (askAtMiddleOf (main.getExportButton()), -1);

    main.getViewButton().setVisible (true);
    EXPECT_EQ (askAtMiddleOf (main.getViewButton()), -1);
}

//==============================================================================
TEST_F (SettingsComponentHostTest, ScreenReadersHaveANameAndAHelpForEveryControl)
{
    int numControls = 0;

    forEachBelow (panel,
                  [&] (juce::Component& component)
                  {
                      const auto isControl = dynamic_cast<juce::Button*> (&component) != nullptr
                                             || dynamic_cast<juce::Slider*> (&component) != nullptr
                                             || dynamic_cast<juce::ComboBox*> (&component) != nullptr
                                             || dynamic_cast<RetinaParamLabel*> (&component) != nullptr
                                             || dynamic_cast<ColourMapPreviewComponent*> (&component) != nullptr;

                      if (! isControl)
                          return;

                      ++numControls;
                      const auto handler = handlerOf (component);
                      ASSERT_NE (handler, nullptr) << component.getName();
                      EXPECT_TRUE (handler->getTitle().isNotEmpty()) << component.getName();
                      EXPECT_TRUE (handler->getHelp().isNotEmpty()) << handler->getTitle();
                  });

    // The presets, two bars of two, three boxes, three toggles, the tag, five sliders, two arrows and the preview.
    EXPECT_EQ (numControls, 20);
}

TEST_F (SettingsComponentHostTest, ScreenReadersHaveANameForEveryButtonBesideThePanel)
{
    for (const auto& [name, title] : { std::pair ("settings", "Settings"),
                                       std::pair ("freeze", "Freeze"),
                                       std::pair ("export", "Export as PNG"),
                                       std::pair ("about", "About") })
    {
        const auto handler = handlerOf (sideBarButton (name));
        EXPECT_EQ (handler->getTitle(), juce::translate (title));
        EXPECT_TRUE (handler->getHelp().isNotEmpty()) << name;
    }

    EXPECT_EQ (handlerOf (main.getFreezeButton())->getTitle(), juce::translate ("Freeze"));
    EXPECT_EQ (handlerOf (main.getExportButton())->getTitle(), juce::translate ("Export as PNG"));
    EXPECT_EQ (handlerOf (main.getViewButton())->getTitle(), juce::translate ("Switch to Full View"));
}

TEST_F (SettingsComponentHostTest, ScreenReadersGetTheValuesThatAreShown)
{
    processor.prepareToPlay (44100.0, 64);
    ASSERT_TRUE (pumpUntil ([this] { return valueText ("maxFreqSlider") == "22050 Hz"; }));

    for (const auto& [id, text] : { std::pair ("speedSlider", "40 %"),
                                    std::pair ("maxFreqSlider", "22050 Hz"),
                                    std::pair ("minFreqSlider", "0 Hz"),
                                    std::pair ("ceilingSlider", "0 dB") })
        EXPECT_EQ (spokenValueOf (slider (id)), text) << id;

    for (const auto* const id : { "fftSizeBox", "scaleBox", "colourBox" })
    {
        auto& box = inner<juce::ComboBox> (id);
        EXPECT_EQ (spokenValueOf (box), box.getText()) << id;
        EXPECT_TRUE (box.getText().isNotEmpty()) << id;
    }

    setValue (Params::id::speed, 62.0f);
    setValue (Params::id::colourMap, 5.0f);
    EXPECT_EQ (spokenValueOf (slider ("speedSlider")), "62 %");
    EXPECT_EQ (spokenValueOf (inner<juce::ComboBox> ("colourBox")), "magma");
}

TEST_F (SettingsComponentHostTest, ScreenReadersCanSetAValue)
{
    const auto handler = handlerOf (slider ("speedSlider"));
    ASSERT_NE (handler->getValueInterface(), nullptr);
    EXPECT_FALSE (handler->getValueInterface()->isReadOnly());
    handler->getValueInterface()->setValueAsString ("55");
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 55.0f);
}

TEST_F (SettingsComponentHostTest, ScreenReadersGetWhichSwitchesAreOn)
{
    const auto isChecked = [] (juce::Component& component)
    {
        const auto state = handlerOf (component)->getCurrentState();
        EXPECT_TRUE (state.isCheckable()) << component.getName();
        return state.isChecked();
    };

    for (const auto& [id, parameterId] : { std::pair ("autoFreezeToggle", Params::id::autoFreeze),
                                           std::pair ("keyboardToggle", Params::id::keyboard),
                                           std::pair ("rulerToggle", Params::id::ruler) })
    {
        for (const auto value : { 1.0f, 0.0f })
        {
            setNormalised (parameterId, value);
            EXPECT_EQ (isChecked (inner<juce::Button> (id)), value > 0.5f) << id;
        }
    }

    for (const auto& [id, parameterId] :
         { std::pair ("modeBar", Params::id::mode), std::pair ("drawModeBar", Params::id::drawMode) })
    {
        for (const auto value : { 0, 1 })
        {
            setValue (parameterId, float (value));
            EXPECT_EQ (isChecked (buttonOf (id, 0)), value == 0) << id;
            EXPECT_EQ (isChecked (buttonOf (id, 1)), value == 1) << id;
        }
    }

    setValue (Params::id::hiDPI, 1.0f);
    EXPECT_TRUE (isChecked (child ("hiDPILabel")));
    setNormalised (Params::id::freeze, 1.0f);
    EXPECT_TRUE (isChecked (sideBarButton ("freeze")));
}

TEST_F (SettingsComponentHostTest, ScreenReadersCanPressThePreview)
{
    auto& preview = dynamic_cast<ColourMapPreviewComponent&> (child ("colourPreview"));
    int numPresses = 0;
    preview.onClick = [&numPresses] { ++numPresses; };
    const auto handler = handlerOf (preview);
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::button);
    EXPECT_TRUE (handler->getActions().invoke (juce::AccessibilityActionType::press));
    EXPECT_EQ (numPresses, 1);

    ColourMapPreviewComponent picture (0, false);
    EXPECT_EQ (handlerOf (picture)->getRole(), juce::AccessibilityRole::image);
}
} // namespace
} // namespace mk::orlo::test
