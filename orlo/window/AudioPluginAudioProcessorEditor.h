// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MainComponent.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/attachments/ParameterAttachment.h"

namespace mk::orlo
{

/** The product's window. Knows the sizes of both views and passes the two parameters on that no control passes
    to the display: the colour map and the double resolution. [message thread] */
class AudioPluginAudioProcessorEditor final : public pluginCore::PluginEditor, private juce::Value::Listener
{
public:
    /** The product's look and feel, shared by all its editors in the process. */
    class DefaultPluginLookAndFeel final : public PluginLookAndFeel
    {
    };

    explicit AudioPluginAudioProcessorEditor (
        AudioPluginAudioProcessor& processor,
        pluginCore::UpdateEnvironment updates = pluginCore::UpdateEnvironment::makeReal());
    ~AudioPluginAudioProcessorEditor() override;

    //==============================================================================
    [[nodiscard]] SizeLimits getSizeLimits() const override;
    [[nodiscard]] double getFixedAspectRatio() const override;
    void retinaStateChanged (pluginCore::PluginMoveDetector&, bool isOnRetinaDisplay) override;

    /** Ignored in Full View, which shows only the picture: the next window shows the notice. */
    void versionInfoReceived (pluginCore::UpdateChecker&,
                              bool newVersionAvailable,
                              juce::int64 latestReleaseDate) override;
    void changeLogReceived (pluginCore::UpdateChecker&, const juce::String& text) override;

    void paint (juce::Graphics&) override {} // the main component covers it
    void resized() override;
    void mouseEnter (const juce::MouseEvent&) override;
    void mouseExit (const juce::MouseEvent&) override;

    //==============================================================================
    [[nodiscard]] MainComponent& getMainComponent() noexcept { return mainComponent; }

private:
    void valueChanged (juce::Value&) override;
    void applyView();
    [[nodiscard]] bool isFullView() const { return bool (cleanViewMode.getValue()); }
    void setColourMap (float value);
    void updateDoubleResolution (float hiDPIValue);

    const std::shared_ptr<DefaultPluginLookAndFeel> pluginLookAndFeel;
    const pluginCore::PluginGlobalSettings globalSettings;
    AudioPluginAudioProcessor& orloProcessor;
    bool onRetinaDisplay = false;
    MainComponent mainComponent;
    juce::Value cleanViewMode, cleanBounds, normalBounds;
    juce::RangedAudioParameter& hiDPIParameter;
    pluginCore::ParameterAttachment colourMapAttachment, hiDPIAttachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AudioPluginAudioProcessorEditor)
};

} // namespace mk::orlo
