// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ExploreGestures.h"
#include "Exporter.h"
#include "FreqReadoutPopup.h"
#include "FreqScaleComponent.h"
#include "KeyboardScaleComponent.h"
#include "LevelBar.h"
#include "MeasuringTool.h"
#include "PictureWriter.h"
#include "SpectrogramComponent.h"
#include "TimeStrip.h"
#include "TuningControl.h"

#include "plugin_core/attachments/ParameterAttachment.h"
#include "plugin_core/display/TooltipDisplayComponent.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

namespace mk::orlo
{

/** The picture with everything on it and beside it: ruler, keyboard, readout, help line, context menu and
    the export as PNG. [message thread] */
class SpectrogramContainer final : public juce::Component, private Explorer::Listener
{
public:
    /** All three must outlive the component. */
    SpectrogramContainer (AudioPluginAudioProcessor& processor,
                          FFTProcessor& fftProcessor,
                          SpectrogramImageBuilder& imageBuilder);
    ~SpectrogramContainer() override;

    //==============================================================================
    /** Asks for a file in a dialog, and exports to it the picture that the container shows when the dialog ends. */
    void exportAsImage();

    /** Copies the picture that the container shows and returns; a thread writes it. The file gets the extension ".png"
        and keeps its content until the whole picture is on the disk. Failures are not reported and leave the file
        unchanged. */
    void exportTo (const juce::File& chosenFile);

    /** The picture that the container shows, with two pixels per unit at double resolution. */
    [[nodiscard]] juce::Image createPicture();

    /** Carries out an entry of the context menu. 0 and unknown entries do nothing. */
    void carryOut (int menuItem);

    /** Opens a page, by default in the browser. */
    std::function<void (const juce::URL&)> openPage;

    /** Gets the new rate in hertz. */
    std::function<void (double)> onSampleRateChanged;

    /** Called when the bar beside the picture has come or gone. */
    std::function<void()> onExploringChanged;

    //==============================================================================
    [[nodiscard]] SpectrogramComponent& getSpectrogram() noexcept { return spectrogram; }
    [[nodiscard]] Exploration& getExploration() noexcept { return exploration; }
    [[nodiscard]] TimeStrip& getTimeStrip() noexcept { return timeStrip; }
    [[nodiscard]] LevelBar& getLevelBar() noexcept { return levelBar; }
    [[nodiscard]] Exporter& getExporter() noexcept { return exporter; }
    [[nodiscard]] FrequencyScale& getFrequencyScale() noexcept { return scale; }
    [[nodiscard]] FreqScaleComponent& getRuler() noexcept { return ruler; }
    [[nodiscard]] KeyboardScaleComponent& getKeyboard() noexcept { return keyboard; }
    [[nodiscard]] FreqReadoutPopup& getReadout() noexcept { return readout; }
    [[nodiscard]] pluginCore::TooltipDisplayComponent& getHelpLine() noexcept { return tooltipDisplay; }
    [[nodiscard]] TuningControl& getTuningControl() noexcept { return tuning; }
    [[nodiscard]] const juce::PopupMenu& getContextMenu() const noexcept { return contextMenu; }

    //==============================================================================
    void resized() override;
    void mouseDown (const juce::MouseEvent&) override;
    void lookAndFeelChanged() override;
    void parentHierarchyChanged() override;

private:
    void exploringChanged() override;
    void connectMouse();
    void connectExports();
    void hold (const juce::MouseEvent& event, float hz);
    bool copyMeasurement (const juce::KeyPress& key);
    void chooseFile (const juce::String& title,
                     const juce::String& patterns,
                     std::function<void (const juce::File&)> onChosen);
    void showReadout (const juce::MouseEvent& event, float hz, bool followCursor);
    void showContextMenu (const juce::PopupMenu::Options& options);
    void showContextMenuAtMouse();
    void showContextMenuOnPicture();
    [[nodiscard]] juce::Component* findDialogParent() const;
    void updateRange();
    void sampleRateChanged (double newRate);
    void switchView();

    AudioPluginAudioProcessor& processor;
    SpectrogramComponent spectrogram;
    Exploration exploration;
    ExploreGestures exploreGestures;
    TimeStrip timeStrip { spectrogram.getExplorer() };
    LevelBar levelBar { spectrogram.getExplorer() };
    MeasuringTool measuring { spectrogram.getExplorer() };
    FrequencyScale scale;
    FreqScaleComponent ruler { scale };
    KeyboardScaleComponent keyboard { scale };
    FreqReadoutPopup readout;
    pluginCore::TooltipDisplayComponent tooltipDisplay;
    juce::PopupMenu contextMenu;
    const pluginCore::PluginGlobalSettings globalSettings;

    juce::RangedAudioParameter &rulerParameter, &keyboardParameter, &freezeParameter, &modeParameter;
    pluginCore::ParameterAttachment rulerAttachment, keyboardAttachment, minFreqAttachment, maxFreqAttachment,
        freqScaleAttachment, freezeAttachment;

    float sampleRate; // hertz
    float minFraction = 0.0f;
    float maxFraction = 1.0f;
    TuningControl tuning;
    PictureWriter pictureWriter;
    std::unique_ptr<juce::FileChooser> fileChooser;
    Exporter exporter;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SpectrogramContainer)
};

} // namespace mk::orlo
