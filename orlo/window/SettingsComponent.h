// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetMenuActions.h"
#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/controls/RetinaParamLabel.h"
#include "orlo/display/ColourComboBoxControl.h"
#include "orlo/display/ColourMapPreviewComponent.h"
#include "orlo/display/CyclingArrowsComponent.h"

#include "plugin_core/attachments/ParameterAttachment.h"
#include "plugin_core/controls/PluginComboBoxControl.h"
#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/controls/PluginToggleControl.h"
#include "plugin_core/editor/PluginEditor.h"

#include <functional>

namespace mk::orlo
{

/** The settings panel: every control of the product from top to bottom, and the preset menu. The ids of its
    children are the names of the members of SettingsLayout. [message thread] */
class SettingsComponent : public juce::Component, public pluginCore::PluginMoveDetector::Listener
{
public:
    /** Both must outlive the panel. */
    SettingsComponent (pluginCore::PluginEditor& editor, pluginCore::PluginProcessor& processor);
    ~SettingsComponent() override;

    /** Called with the index of the colour map whenever it changes. */
    std::function<void (int)> onColourMapChanged;

    /** Shows and reads the frequency limits in hertz at this sample rate; "0 Hz" if there is no sample rate
        yet. */
    void updateFreqSliderTextFunctions (double newSampleRate);

    /** The resolution can be chosen only on a high-density display. */
    void setOnRetinaDisplay (bool isOnRetinaDisplay);

    [[nodiscard]] int getColourMapIndex() const noexcept { return colourMapIndex; }

    /** The actions of the rows of the preset menu. */
    [[nodiscard]] PresetMenuActions& getPresetActions() noexcept { return presetActions; }

    /** The menu that was opened last. */
    [[nodiscard]] const pluginCore::PresetMenu& getPresetsMenu() const noexcept { return presetsMenu; }

    void paint (juce::Graphics& g) override;
    void resized() override;

    void windowMoved (pluginCore::PluginMoveDetector&) override {}
    void applicationActiveChanged (pluginCore::PluginMoveDetector&, bool) override {}
    void retinaStateChanged (pluginCore::PluginMoveDetector&, bool isOnRetinaDisplay) override;

private:
    void add (juce::Component& child, const char* id);
    void setUpLabels();
    void setUpAnalysis();
    void setUpDisplay();
    void setUpSliders();
    void setUpColours();
    void setUpPresets();
    void showPresetsMenu();
    void showColourMap (float value);

    pluginCore::PluginEditor& editor;
    pluginCore::PluginProcessor& processor;
    double sampleRate = -1.0; // in hertz, of the frequency texts; negative until it is known
    int colourMapIndex = 0;

    juce::Label title, analysisHeading, fftSizeLabel, displayHeading, scaleLabel, speedLabel, maxFreqLabel,
        minFreqLabel, colourHeading;
    RetinaParamLabel hiDPILabel;
    ButtonBarComponent modeBar, drawModeBar;
    pluginCore::PluginComboBoxControl fftSizeBox, scaleBox;
    pluginCore::PluginToggleControl autoFreezeToggle, keyboardToggle, rulerToggle;
    pluginCore::PluginSliderControl speedSlider, maxFreqSlider, minFreqSlider, floorSlider, ceilingSlider;
    ColourComboBoxControl colourBox;
    CyclingArrowsComponent arrows;
    ColourMapPreviewComponent colourPreview;
    pluginCore::ParameterAttachment colourMapAttachment;

    PresetMenuActions presetActions;
    pluginCore::ComponentIgnoringRightButton<juce::DrawableButton> presetsButton;
    pluginCore::PresetMenu presetsMenu;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SettingsComponent)
};

} // namespace mk::orlo
