// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "FreqReadoutPopup.h"
#include "FreqScaleComponent.h"
#include "KeyboardScaleComponent.h"
#include "SpectrogramComponent.h"

#include "plugin_core/attachments/ParameterAttachment.h"
#include "plugin_core/display/TooltipDisplayComponent.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

namespace mk::orlo
{

/** The picture with everything that stands on it and beside it: ruler, keyboard, readout, line of help,
    context menu and the export as PNG. [message thread] */
class SpectrogramContainer final : public juce::Component
{
public:
    /** All three must outlive the component. */
    SpectrogramContainer (AudioPluginAudioProcessor& processor,
                          FFTProcessor& fftProcessor,
                          SpectrogramImageBuilder& imageBuilder);
    ~SpectrogramContainer() override;

    //==============================================================================
    /** Asks for a file and writes what the container shows into it, in the end and without a word of failure. */
    void exportAsImage();

    /** Writes what the container shows at this moment; the file gets the extension of a PNG. */
    void exportTo (const juce::File& chosenFile);

    /** What the container shows, at two pixels for one at double resolution. */
    [[nodiscard]] juce::Image createPicture();

    /** Carries out an entry of the context menu. 0 and unknown ones do nothing. */
    void carryOut (int menuItem);

    /** Opens a page. The browser, unless somebody puts something else in its place. */
    std::function<void (const juce::URL&)> openPage;

    /** Gets the new rate in hertz. */
    std::function<void (double)> onSampleRateChanged;

    //==============================================================================
    [[nodiscard]] SpectrogramComponent& getSpectrogram() noexcept { return spectrogram; }
    [[nodiscard]] FrequencyScale& getFrequencyScale() noexcept { return scale; }
    [[nodiscard]] FreqScaleComponent& getRuler() noexcept { return ruler; }
    [[nodiscard]] KeyboardScaleComponent& getKeyboard() noexcept { return keyboard; }
    [[nodiscard]] FreqReadoutPopup& getReadout() noexcept { return readout; }
    [[nodiscard]] pluginCore::TooltipDisplayComponent& getHelpLine() noexcept { return tooltipDisplay; }
    [[nodiscard]] const juce::PopupMenu& getContextMenu() const noexcept { return contextMenu; }


    //==============================================================================
    void resized() override;
    void mouseDown (const juce::MouseEvent&) override;
    void lookAndFeelChanged() override;
    void parentHierarchyChanged() override;

private:
    void connectMouse();
    void showReadout (const juce::MouseEvent& event, float hz, bool followCursor);
    void showContextMenu();
    void updateRange();
    void sampleRateChanged (double newRate);
    void switchView();

    AudioPluginAudioProcessor& processor;
    SpectrogramComponent spectrogram;
    FrequencyScale scale;
    FreqScaleComponent ruler { scale };
    KeyboardScaleComponent keyboard { scale };
    FreqReadoutPopup readout;
    pluginCore::TooltipDisplayComponent tooltipDisplay;
    juce::PopupMenu contextMenu;
    const pluginCore::PluginGlobalSettings globalSettings;

    juce::RangedAudioParameter &rulerParameter, &keyboardParameter, &freezeParameter;
    pluginCore::ParameterAttachment rulerAttachment, keyboardAttachment, minFreqAttachment, maxFreqAttachment,
        freqScaleAttachment, freezeAttachment;

    float sampleRate; // hertz
    float minFraction = 0.0f;
    float maxFraction = 1.0f;
    const int octaveOfMiddleC;
    std::unique_ptr<juce::FileChooser> fileChooser;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SpectrogramContainer)
};

} // namespace mk::orlo
