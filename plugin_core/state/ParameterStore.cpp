// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ParameterStore.h"

#include "plugin_core/text/NumberText.h"

#include <algorithm>
#include <cmath>

namespace mk::pluginCore
{
namespace
{
// The names that juce::AudioProcessorValueTreeState uses in its own documents.
constexpr auto parameterTag = "PARAM";
constexpr auto idAttribute = "id";
constexpr auto valueAttribute = "value";
} // namespace

ParameterStore::ParameterStore (juce::AudioProcessorValueTreeState& stateToUse)
    : state (stateToUse), tag (state.state.getType().toString())
{
    for (auto* const parameter : state.processor.getParameters())
    {
        if (auto* const ranged = dynamic_cast<juce::RangedAudioParameter*> (parameter))
        {
            parameters.push_back (ranged);
            currentValues.push_back (state.getRawParameterValue (ranged->getParameterID()));
        }
    }
}

//==============================================================================
std::unique_ptr<juce::XmlElement> ParameterStore::createXml() const
{
    auto xml = std::make_unique<juce::XmlElement> (tag);
    const juce::ScopedLock scopedLock (lock);

    for (size_t i = 0; i < parameters.size(); ++i)
    {
        const auto isArriving = ! arriving.empty() && arriving[i].has_value();
        const auto value = isArriving ? *arriving[i] : getCurrentValue (i);
        auto* const child = xml->createNewChildElement (parameterTag);
        child->setAttribute (idAttribute, parameters[i]->getParameterID());
        child->setAttribute (valueAttribute, double (value));
    }

    return xml;
}

float ParameterStore::getCurrentValue (size_t index) const noexcept
{
    return currentValues[index]->load (std::memory_order_relaxed);
}

//==============================================================================
void ParameterStore::apply (const juce::XmlElement& xml, const juce::StringArray& lockedIds)
{
    auto values = readValues (xml);
    std::vector<std::pair<juce::RangedAudioParameter*, float>> locked;

    for (const auto& id : lockedIds)
    {
        const auto hasId = [&id] (const auto* parameter) { return parameter->getParameterID() == id; };
        const auto found = std::find_if (parameters.begin(), parameters.end(), hasId);

        if (found == parameters.end())
            continue;

        locked.emplace_back (*found, (*found)->getValue());
        values[size_t (std::distance (parameters.begin(), found))].reset();
    }

    announce (std::move (values));

    while (! setAnnounced())
    {
    }

    // Without the lock, two threads that apply at once would nest their gestures.
    const juce::ScopedLock scopedLock (gestureLock);

    for (const auto& [parameter, value] : locked)
    {
        parameter->beginChangeGesture();
        parameter->setValueNotifyingHost (value);
        parameter->endChangeGesture();
    }
}

ParameterStore::Values ParameterStore::readValues (const juce::XmlElement& xml) const
{
    std::vector<juce::String> texts (parameters.size());

    for (const auto* child : xml.getChildWithTagNameIterator (parameterTag))
        for (size_t i = 0; i < parameters.size(); ++i)
            if (child->compareAttribute (idAttribute, parameters[i]->getParameterID()))
                texts[i] = child->getStringAttribute (valueAttribute);

    Values values;

    for (size_t i = 0; i < texts.size(); ++i)
        values.emplace_back (getLegalValue (i, texts[i]));

    return values;
}

float ParameterStore::getLegalValue (size_t index, const juce::String& text) const
{
    const auto& parameter = *parameters[index];
    const auto& range = parameter.getNormalisableRange();
    const auto number = parseNumber (text);

    if (! number.has_value() || ! std::isfinite (*number))
        return parameter.convertFrom0to1 (parameter.getDefaultValue());

    const auto limited = float (juce::jlimit (double (range.start), double (range.end), *number));
    return range.snapToLegalValue (limited);
}

void ParameterStore::announce (Values values)
{
    const juce::ScopedLock scopedLock (lock);
    arriving = std::move (values);
    ++generation;
    ++numThreadsApplying;
}

bool ParameterStore::setAnnounced()
{
    Values values;
    juce::uint64 generationOfValues = 0;

    {
        const juce::ScopedLock scopedLock (lock);
        values = arriving;
        generationOfValues = generation;
    }

    for (size_t i = 0; i < values.size(); ++i)
        if (values[i].has_value() && ! juce::approximatelyEqual (*values[i], getCurrentValue (i)))
            parameters[i]->setValueNotifyingHost (parameters[i]->convertTo0to1 (*values[i]));

    const juce::ScopedLock scopedLock (lock);

    // Newer values have arrived meanwhile, and the ones set here may have overwritten some of them.
    if (generation != generationOfValues)
        return false;

    if (--numThreadsApplying == 0)
        arriving.clear();

    return true;
}

//==============================================================================
void ParameterStore::updateTree()
{
    // When its tree changes, the parameter state sets the parameter, which could overwrite a value that another
    // thread has set since it was read here. So the state is excluded as a listener. It inherits the listener
    // privately, and only a C cast converts to a private base. If the base were removed, the cast would still
    // compile, as a reinterpret_cast: hence the assertion.
    static_assert (std::is_base_of_v<juce::ValueTree::Listener, juce::AudioProcessorValueTreeState>);
    auto* const parameterState = (juce::ValueTree::Listener*) &state;

    for (size_t i = 0; i < parameters.size(); ++i)
        if (auto child = state.state.getChildWithProperty (idAttribute, parameters[i]->getParameterID());
            child.isValid())
            child.setPropertyExcludingListener (parameterState, valueAttribute, double (getCurrentValue (i)), nullptr);
}

} // namespace mk::pluginCore
