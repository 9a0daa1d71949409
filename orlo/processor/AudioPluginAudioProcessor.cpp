// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioPluginAudioProcessor.h"

#include "ParameterAccess.h"
#include "Product.h"
#include "orlo/parameters/Params.h"
#include "orlo/state/TuningSettings.h"

#include "plugin_core/text/NumberText.h"

#include <utility>

namespace mk::orlo
{
namespace
{
/** A boolean parameter's value. */
[[nodiscard]] bool isOn (const std::atomic<float>& parameter) noexcept
{
    return parameter.load (std::memory_order_relaxed) >= 0.5f;
}

/** What the host tells about the block. While the song stands still it has no time that the sound could have. */
[[nodiscard]] HostNote makeNote (const juce::AudioPlayHead::PositionInfo& position) noexcept
{
    HostNote note;

    if (! position.getIsPlaying())
        return note;

    note.quarters = position.getPpqPosition().orFallback (HostNote::unknown);
    note.barStart = position.getPpqPositionOfLastBarStart().orFallback (HostNote::unknown);
    note.quartersPerMinute = position.getBpm().orFallback (0.0);

    if (const auto signature = position.getTimeSignature())
    {
        note.numerator = signature->numerator;
        note.denominator = signature->denominator;
    }

    return note;
}
} // namespace

AudioPluginAudioProcessor::AudioPluginAudioProcessor (EditorFactory editorFactory,
                                                      pluginCore::PresetFolders presetFolders)
    : PluginProcessor (BusesProperties()
                           .withInput ("Input", juce::AudioChannelSet::stereo(), true)
                           .withOutput ("Output", juce::AudioChannelSet::stereo(), true),
                       makeProductInfo(),
                       Params::createLayout(),
                       std::move (presetFolders)),
      makeEditor (editorFactory),
      fftSizeParam (getParameterState().getRawParameterValue (Params::id::fftSize)),
      freezeParam (getParameterState().getRawParameterValue (Params::id::freeze)),
      autoFreezeParam (getParameterState().getRawParameterValue (Params::id::autoFreeze)),
      modeParam (getParameterState().getRawParameterValue (Params::id::mode)),
      floorParam (getParameterState().getRawParameterValue (Params::id::floor)),
      ceilingParam (getParameterState().getRawParameterValue (Params::id::ceiling)),
      drawModeParam (getParameterState().getRawParameterValue (Params::id::drawMode)),
      freqScaleParam (getParameterState().getRawParameterValue (Params::id::freqScale)),
      minFreqParam (getParameterState().getRawParameterValue (Params::id::minFreq)),
      maxFreqParam (getParameterState().getRawParameterValue (Params::id::maxFreq))
{
    localisedStrings.chooseLanguage();
    getSessionState().getSettings().onReplaced = [this] { uiView.bind(); };
    getSessionState().setPresetProperties ({ data::PointsChoice::property });
    updatePictureSettings();
    fftProcessor.startThread (juce::Thread::Priority::highest);
}

AudioPluginAudioProcessor::~AudioPluginAudioProcessor() = default;

void AudioPluginAudioProcessor::updatePictureSettings()
{
    const auto floorDb = floorParam->load (std::memory_order_relaxed);
    const auto ceilingDb = ceilingParam->load (std::memory_order_relaxed);

    // The floor may be above the ceiling, which inverts the picture. The threshold below which bins count as
    // silence is the lower of the two in both cases.
    fftProcessor.setMagnitudeThreshold (magnitudeForDecibels (juce::jmin (floorDb, ceilingDb)));
    fftProcessor.setPointsKept (pointsChoice.get());
    imageBuilder.setLevelRange (floorDb, ceilingDb);
    imageBuilder.setScrollMode (juce::roundToInt (drawModeParam->load (std::memory_order_relaxed)) == 1);
    imageBuilder.getFrequencyScale().setScaleType (juce::roundToInt (freqScaleParam->load (std::memory_order_relaxed)));
    imageBuilder.setMinFreqFraction (minFreqParam->load (std::memory_order_relaxed) * 0.01f);
    imageBuilder.setMaxFreqFraction (maxFreqParam->load (std::memory_order_relaxed) * 0.01f);
    updateSource();
}

void AudioPluginAudioProcessor::updateSource()
{
    const auto source = uiView.getSource();

    if (source == requestedSource.load (std::memory_order_relaxed))
        return;

    if (source == Source::loudest)
        fftProcessor.makeRoomForSecondStream();

    requestedSource.store (source, std::memory_order_release);
}

//==============================================================================
pluginCore::PresetFolders AudioPluginAudioProcessor::getDefaultPresetFolders()
{
    return pluginCore::makePresetFolders (makeProductInfo());
}

void AudioPluginAudioProcessor::applyInitialSettings()
{
    PluginProcessor::applyInitialSettings();
    applyPreferredColourMap();
    data::TuningSettings (uiView).takeUsersChoice();
    getSessionState().forgetUndoHistory();
}

void AudioPluginAudioProcessor::applyPreferredColourMap()
{
    // The setting counts from 1; a missing or invalid one reads as 0, which selects the first map.
    const auto text = getGlobalSettings()[pluginCore::SettingsIds::preferedMap].toString();
    const auto index = float (pluginCore::parseInteger (text).value_or (0)) - 1.0f;
    auto& parameter = findParameter (*this, Params::id::colourMap);

    if (const auto value = parameter.convertTo0to1 (index); ! juce::approximatelyEqual (value, parameter.getValue()))
        parameter.setValueNotifyingHost (value);
}

juce::String AudioPluginAudioProcessor::getReleaseNotesUrl() const { return getVendorSite() + "/releaseNotes/orlo"; }

juce::String AudioPluginAudioProcessor::getProductUrl() const { return getVendorSite() + "/product/orlo"; }

std::unique_ptr<pluginCore::ProcessorEditor> AudioPluginAudioProcessor::createEditorInternal()
{
    return makeEditor != nullptr ? makeEditor (*this) : nullptr;
}

void AudioPluginAudioProcessor::setAnalysisSuspended (bool shouldBeSuspended) noexcept
{
    if (! shouldBeSuspended)
        updateSource();

    analysisSuspended.store (shouldBeSuspended, std::memory_order_relaxed);

    if (! shouldBeSuspended)
        fftProcessor.discardPending();
}

void AudioPluginAudioProcessor::setPointsKept (PointsKept chosen)
{
    if (chosen == pointsChoice.get())
        return;

    flushParameterChanges(); // they belong to the step of undo before
    pointsChoice.set (chosen, getUndoManager());
    setDirty();
    nudgeInternalParameter();
    flushParameterChanges();
}

void AudioPluginAudioProcessor::setSoundKept (bool shouldBeKept)
{
    if (shouldBeKept)
    {
        const auto setting = getGlobalSettings()[pluginCore::SettingsIds::historySeconds];
        soundHistory.start (setting.isVoid() ? SoundHistory::defaultSeconds
                                             : pluginCore::parseNumber (setting.toString()).value_or (0.0));
    }
    else if (isFrozen())
    {
        soundHistory.stopButKeep();
    }
    else
    {
        soundHistory.stop();
    }
}

bool AudioPluginAudioProcessor::isFrozen() const noexcept { return isAutoPaused() || isOn (*freezeParam); }

//==============================================================================
void AudioPluginAudioProcessor::prepareInternal (int maxBlockSize, double rate)
{
    if (rate <= 0.0)
        return;

    fftProcessor.prepareToPlay (rate);
    soundHistory.prepare (rate, juce::jmax (getTotalNumInputChannels(), getTotalNumOutputChannels()));
    sourceMixer.prepare (maxBlockSize);
}

void AudioPluginAudioProcessor::processInternal (juce::AudioBuffer<float>& buffer, juce::MidiBuffer&)
{
    if (analysisSuspended.load (std::memory_order_relaxed))
    {
        delayByLatency (buffer);
        return;
    }

    const juce::ScopedNoDenormals noDenormals;
    const auto numInputs = getTotalNumInputChannels();
    const auto numOutputs = getTotalNumOutputChannels();

    if (numInputs < 1 || numOutputs < 1 || buffer.getNumChannels() < 1
        || sampleRate.load (std::memory_order_relaxed) <= 0.0)
    {
        buffer.clear();
        return;
    }

    if (! buffer.hasBeenCleared())
        for (int channel = numInputs; channel < juce::jmin (numOutputs, buffer.getNumChannels()); ++channel)
            buffer.copyFrom (channel, 0, buffer, 0, 0, buffer.getNumSamples());

    updateWindowLength();
    fftProcessor.setEnhanced (juce::roundToInt (modeParam->load (std::memory_order_relaxed)) != 0);
    updateTransport();

    if (! updatePause() && buffer.getNumSamples() > 0)
    {
        soundHistory.push (buffer.getArrayOfReadPointers(), buffer.getNumChannels(), buffer.getNumSamples(), hostNote);
        pushSource (buffer);
    }
}

void AudioPluginAudioProcessor::updateWindowLength() noexcept
{
    // One sample less than the size shown to the user, so that the window has a middle sample.
    const auto windowLength = Params::getWindowSize (fftSizeParam->load (std::memory_order_relaxed)) - 1;
    auto config = fftProcessor.getCurrentConfig();

    if (config.windowLength != windowLength)
    {
        config.windowLength = windowLength;
        fftProcessor.setPendingConfig (config);
    }
}

void AudioPluginAudioProcessor::updateTransport() noexcept
{
    hostNote = {};

    // If the host gives no position, the last known state is kept.
    if (const auto* const head = getPlayHead())
        if (const auto position = head->getPosition())
        {
            transportPlaying = position->getIsPlaying();
            hostNote = makeNote (*position);
        }
}

bool AudioPluginAudioProcessor::updatePause() noexcept
{
    const auto stopped = isOn (*autoFreezeParam) && ! transportPlaying;
    autoPaused.store (stopped, std::memory_order_relaxed);
    return stopped || isOn (*freezeParam);
}

void AudioPluginAudioProcessor::pushSource (const juce::AudioBuffer<float>& buffer) noexcept
{
    // Acquires the room for a second stream, see updateSource().
    const auto wanted = requestedSource.load (std::memory_order_acquire);
    const auto source = SourceMixer::findSource (wanted, buffer.getNumChannels());

    if (std::exchange (analysedSource, source) != source)
        fftProcessor.startSignal (source == Source::loudest ? 2 : 1);

    const auto streams = sourceMixer.mix (buffer, source);
    fftProcessor.pushSamples (streams.first, streams.second, buffer.getNumSamples());
}

} // namespace mk::orlo
