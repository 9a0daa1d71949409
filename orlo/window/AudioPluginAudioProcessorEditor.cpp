// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioPluginAudioProcessorEditor.h"

#include "WindowBounds.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/ParameterAccess.h"
#include "orlo/style/OrloColours.h"

#include "plugin_core/look/SharedLookAndFeel.h"

namespace mk::orlo
{
namespace
{
constexpr auto standardAspectRatio = 1.818f;
constexpr int smallestSide = 100;
constexpr int largestSide = 10000;
} // namespace

AudioPluginAudioProcessorEditor::AudioPluginAudioProcessorEditor (AudioPluginAudioProcessor& processorToUse,
                                                                  pluginCore::UpdateEnvironment updates)
    : PluginEditor (processorToUse, std::move (updates)),
      pluginLookAndFeel (pluginCore::SharedLookAndFeel<DefaultPluginLookAndFeel>::acquire()),
      orloProcessor (processorToUse),
      mainComponent (*this, processorToUse),
      cleanViewMode (processorToUse.getUIView().getCleanViewModeValue()),
      cleanBounds (processorToUse.getUIView().getCleanBoundsValue()),
      normalBounds (processorToUse.getUIView().getNormalBoundsValue()),
      hiDPIParameter (findParameter (processorToUse, Params::id::hiDPI)),
      colourMapAttachment (findParameter (processorToUse, Params::id::colourMap),
                           [this] (float value) { setColourMap (value); }),
      hiDPIAttachment (hiDPIParameter, [this] (float value) { updateDoubleResolution (value); })
{
    addAndMakeVisible (mainComponent);
    colourMapAttachment.sendInitialUpdate();
    hiDPIAttachment.sendInitialUpdate();

    // A new instance opens Full View at the size that was last used in any instance.
    if (cleanBounds.toString().isEmpty())
        cleanBounds = globalSettings.getSettings()[pluginCore::SettingsIds::latestCleanViewBounds].toString();

    cleanViewMode.addListener (this);
    applyView();
    setOpaque (true);
}

AudioPluginAudioProcessorEditor::~AudioPluginAudioProcessorEditor() { cleanViewMode.removeListener (this); }

//==============================================================================
pluginCore::PluginEditor::SizeLimits AudioPluginAudioProcessorEditor::getSizeLimits() const
{
    return { smallestSide, smallestSide, largestSide, largestSide };
}

double AudioPluginAudioProcessorEditor::getFixedAspectRatio() const
{
    return isFullView() ? 0.0 : double (standardAspectRatio);
}

//==============================================================================
void AudioPluginAudioProcessorEditor::valueChanged (juce::Value& value)
{
    if (value.refersToSameSourceAs (cleanViewMode))
        applyView();
}

void AudioPluginAudioProcessorEditor::applyView()
{
    const auto isFull = isFullView();

    // The grip is invisible in Full View, but still works. All windows share the look and feel with its colour, so
    // the alpha of this window's grip is changed instead.
    getCornerResizer().setAlpha (isFull ? 0.0f : 1.0f);

    auto* const limits = getConstrainer();

    if (limits != nullptr)
        limits->setFixedAspectRatio (juce::jmax (getFixedAspectRatio(), 0.0));

    const auto bounds = (isFull ? cleanBounds : normalBounds).toString();

    if (bounds.isEmpty())
        return;

    const auto size = parseWindowSize (bounds);
    const auto wanted = getBounds().withSize (size.x, size.y);

    if (limits != nullptr)
        limits->setBoundsForComponent (this, wanted, false, false, false, false);
    else
        setBounds (wanted);
}

void AudioPluginAudioProcessorEditor::versionInfoReceived (pluginCore::UpdateChecker& checker,
                                                           bool newVersionAvailable,
                                                           juce::int64 latestReleaseDate)
{
    if (! isFullView())
        PluginEditor::versionInfoReceived (checker, newVersionAvailable, latestReleaseDate);
}

void AudioPluginAudioProcessorEditor::changeLogReceived (pluginCore::UpdateChecker& checker, const juce::String& text)
{
    if (! isFullView())
        PluginEditor::changeLogReceived (checker, text);
}

//==============================================================================
void AudioPluginAudioProcessorEditor::resized()
{
    mainComponent.setBounds (getLocalBounds());

    auto& bounds = isFullView() ? cleanBounds : normalBounds;
    bounds = formatWindowBounds (getWidth(), getHeight());
    globalSettings.getSettings().setProperty (
        pluginCore::SettingsIds::latestCleanViewBounds, cleanBounds.toString(), nullptr);
}

void AudioPluginAudioProcessorEditor::mouseEnter (const juce::MouseEvent&)
{
    getCornerResizer().setVisible (isMouseOver (true));
}

void AudioPluginAudioProcessorEditor::mouseExit (const juce::MouseEvent&)
{
    getCornerResizer().setVisible (isMouseOver (true));
}

//==============================================================================
void AudioPluginAudioProcessorEditor::setColourMap (float value)
{
    // For an index without a map the builder uses the first map.
    orloProcessor.getImageBuilder().setColourMap (juce::jmax (0, juce::roundToInt (value)));
}

void AudioPluginAudioProcessorEditor::retinaStateChanged (pluginCore::PluginMoveDetector&, bool isOnRetinaDisplay)
{
    if (std::exchange (onRetinaDisplay, isOnRetinaDisplay) == isOnRetinaDisplay)
        return;

    updateDoubleResolution (getCurrentValue (hiDPIParameter));
}

void AudioPluginAudioProcessorEditor::updateDoubleResolution (float hiDPIValue)
{
    mainComponent.getSpectrogramContainer().getSpectrogram().setDoubleResolution (onRetinaDisplay
                                                                                  && juce::roundToInt (hiDPIValue) > 0);
}

} // namespace mk::orlo
