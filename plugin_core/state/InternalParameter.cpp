// SPDX-License-Identifier: AGPL-3.0-or-later
#include "InternalParameter.h"

#include "NonAutomatableParameter.h"

namespace mk::pluginCore
{

std::unique_ptr<juce::AudioParameterFloat> createInternalParam (int versionHint)
{
    const juce::ParameterID id { internalParameterId, versionHint };
    const juce::NormalisableRange<float> range (0.0f, 1.0f, 0.0f);
    const auto attributes = juce::AudioParameterFloatAttributes().withStringFromValueFunction (
        [] (float, int) { return juce::String ("-"); });

    const auto automatable = juce::PluginHostType().isReaper()
                             && juce::PluginHostType::getPluginLoadedAs() == juce::AudioProcessor::wrapperType_VST3;

    if (automatable)
        return std::make_unique<juce::AudioParameterFloat> (id, "internal", range, 0.0f, attributes);

    return std::make_unique<NonAutomatableParameter<juce::AudioParameterFloat>> (
        id, "internal", range, 0.0f, attributes);
}

} // namespace mk::pluginCore
