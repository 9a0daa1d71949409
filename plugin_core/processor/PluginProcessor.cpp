// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginProcessor.h"

#include "plugin_core/files/UntrustedXml.h"
#include "plugin_core/presets/PresetReference.h"
#include "plugin_core/state/InternalParameter.h"
#include "plugin_core/state/StateBlob.h"
#include "plugin_core/text/NumberText.h"

namespace mk::pluginCore
{
namespace
{
constexpr int undoUnits = 30000;
constexpr int undoTransactions = 30;
constexpr auto parameterTreeType = "PARAMS";

constexpr auto lastPresetTag = "lastPreset";
constexpr auto versionAttribute = "version";
constexpr auto companyAttribute = "company";

constexpr int fallbackEditorWidth = 1050;
constexpr int fallbackEditorHeight = 900;

/** Raises a count for the lifetime of the object. */
class RaisedWithinScope
{
public:
    explicit RaisedWithinScope (std::atomic<int>& countToRaise) noexcept : count (countToRaise)
    {
        count.fetch_add (1, std::memory_order_acq_rel);
    }

    ~RaisedWithinScope() { count.fetch_sub (1, std::memory_order_acq_rel); }

private:
    std::atomic<int>& count;

    JUCE_DECLARE_NON_COPYABLE (RaisedWithinScope)
};

/** The session's size if there is one, else the user's last size, else the fallback. */
[[nodiscard]] int
    chooseEditorSize (int sessionSize, const juce::ValueTree& settings, const juce::Identifier& key, int fallback)
{
    if (sessionSize > 0)
        return sessionSize;

    const auto userSize = parseInteger (settings[key].toString()).value_or (-1);
    return userSize > 0 ? userSize : fallback;
}
} // namespace

PluginProcessor::PluginProcessor (const BusesProperties& buses,
                                  ProductInfo product,
                                  juce::AudioProcessorValueTreeState::ParameterLayout layout,
                                  PresetFolders presetFolders)
    : juce::AudioProcessor (buses),
      productInfo (std::move (product)),
      undoManager (undoUnits, undoTransactions),
      parameterState (*this, &undoManager, parameterTreeType, std::move (layout)),
      state (parameterState, undoManager),
      presets (*this, std::move (presetFolders))
{
}

PluginProcessor::~PluginProcessor()
{
    for (const auto* parameter : getParameters())
        if (const auto* const withId = dynamic_cast<const juce::AudioProcessorParameterWithID*> (parameter))
            parameterState.removeParameterListener (withId->getParameterID(), this);
}

//==============================================================================
void PluginProcessor::prepareToPlay (double rate, int maxBlockSize)
{
    sampleRate.store (rate, std::memory_order_relaxed);

    const juce::dsp::ProcessSpec spec { rate,
                                        juce::uint32 (juce::jmax (0, maxBlockSize)),
                                        juce::uint32 (juce::jmax (1, getTotalNumOutputChannels())) };
    bypassDelay.prepare (spec, getLatencySamples());
    prepareInternal (maxBlockSize, rate);
}

void PluginProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    const juce::ScopedNoDenormals noDenormals;

    if (resetRequested.exchange (false, std::memory_order_acq_rel))
        onResetRequested();

    processInternal (buffer, midi);
}

void PluginProcessor::processBlockBypassed (juce::AudioBuffer<float>& buffer, juce::MidiBuffer&)
{
    delayByLatency (buffer);
}

bool PluginProcessor::isBusesLayoutSupported (const BusesLayout& layout) const
{
    const auto output = layout.getMainOutputChannelSet();
    const auto monoOrStereo = output == juce::AudioChannelSet::mono() || output == juce::AudioChannelSet::stereo();
    return monoOrStereo && layout.getMainInputChannelSet() == output;
}

//==============================================================================
void PluginProcessor::applyInitialSettings()
{
    loadDefaultPreset();

    for (auto* const parameter : getParameters())
    {
        if (const auto* const withId = dynamic_cast<const juce::AudioProcessorParameterWithID*> (parameter))
        {
            // The parameter state forwards its first message even without a change, so send it before listening.
            parameter->sendValueChangedMessageToListeners (parameter->getValue());
            parameterState.addParameterListener (withId->getParameterID(), this);
        }
    }

    state.forgetUndoHistory();
}

void PluginProcessor::loadDefaultPreset()
{
    const auto text = getGlobalSettings()[SettingsIds::defaultPreset].toString();

    if (const auto xml = parseUntrustedXml (text))
        if (const auto file = PresetReference::fromXml (*xml).resolve (presets.getFolders());
            presets.isPresetFile (file))
            presets.loadPresetFile (file, nullptr);
}

void PluginProcessor::parameterChanged (const juce::String&, float)
{
    if (! isLoadingState() && ! presets.isLoading())
        setDirty();
}

juce::String PluginProcessor::getVersionText() const
{
    juce::String text = getWrapperTypeDescription (wrapperType);
    text << " - v" << productInfo.version;

#if JUCE_INTEL
    text << " (x64)";
#endif

    return text;
}

juce::AudioProcessorEditor* PluginProcessor::createEditor()
{
    // Read the size before the editor exists, since its first resize overwrites the size in the state.
    const auto settings = getGlobalSettings();
    const auto width = chooseEditorSize (state.pluginEditorWidth.load (std::memory_order_relaxed),
                                         settings,
                                         SettingsIds::defaultWidth,
                                         fallbackEditorWidth);
    const auto height = chooseEditorSize (state.pluginEditorHeight.load (std::memory_order_relaxed),
                                          settings,
                                          SettingsIds::defaultHeight,
                                          fallbackEditorHeight);

    auto editor = createEditorInternal();

    if (editor == nullptr)
        return nullptr;

    editor->open (width, height);
    editor->startUpdateCheck();

    // JUCE's interface returns an owning raw pointer.
    return editor.release();
}

void PluginProcessor::nudgeInternalParameter()
{
    constexpr auto step = 0.01f;

    if (auto* const parameter = parameterState.getParameter (internalParameterId))
    {
        const auto moved = parameter->getValue() + step;
        parameter->beginChangeGesture();
        parameter->setValueNotifyingHost (moved < 1.0f ? moved : 0.0f);
        parameter->endChangeGesture();
    }
}

//==============================================================================
void PluginProcessor::getStateInformation (juce::MemoryBlock& destination)
{
    destination = writeStateBlob (*getStateXml (true));
}

void PluginProcessor::setStateInformation (const void* data, int size)
{
    const RaisedWithinScope restoring (numRestoring);
    const auto xml = readStateBlob (data, size);

    if (xml != nullptr)
        restoreSession (*xml);

    stateRestored.store (true, std::memory_order_release);
    state.setStateCopies (xml.get(), *getStateXml (false));
}

void PluginProcessor::restoreSession (const juce::XmlElement& xml)
{
    const auto* const lastPreset = xml.getChildByName (lastPresetTag);

    if (lastPreset != nullptr)
        presets.setCurrentPresetFromXml (*lastPreset);

    setStateFromXml (xml, true);

    if (lastPreset != nullptr)
        presets.setDirtyFromXml (*lastPreset);

    // Read the new list last, since the parameters locked so far also keep their values when a session is restored.
    state.readLockedParams (xml);
    presets.sendLockedParamsChanged();
    state.forgetUndoHistory();
}

std::unique_ptr<juce::XmlElement> PluginProcessor::getStateXml (bool forSession)
{
    auto xml = std::make_unique<juce::XmlElement> (productInfo.getXmlTag());
    xml->setAttribute (versionAttribute, productInfo.version);
    state.writeTo (*xml, forSession, forSession ? presets.createLastPresetXml() : nullptr);
    return xml;
}

bool PluginProcessor::setStateFromXml (const juce::XmlElement& xml, bool forSession)
{
    if (! xml.hasTagName (productInfo.getXmlTag()))
        return false;

    state.readFrom (xml, forSession);
    resetRequested.store (true, std::memory_order_release);
    stateRestored.store (true, std::memory_order_release);
    return true;
}

void PluginProcessor::setDirty()
{
    if (! dirtyLocked.load (std::memory_order_acquire))
        presets.setDirty (true);
}

void PluginProcessor::refreshStateCopies()
{
    const auto xml = getStateXml (false);
    state.setStateCopies (xml.get(), *xml);
}

std::unique_ptr<juce::XmlElement> PluginProcessor::createPresetHeaderXml() const
{
    auto xml = std::make_unique<juce::XmlElement> (productInfo.getXmlTag());
    xml->setAttribute (companyAttribute, productInfo.company);
    xml->setAttribute (versionAttribute, productInfo.version);
    return xml;
}

} // namespace mk::pluginCore
