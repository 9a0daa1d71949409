// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioPluginAudioProcessor.h"

/** What the format wrappers call for a new instance. The wrapper owns what it gets. */
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    auto processor = std::make_unique<mk::orlo::AudioPluginAudioProcessor>();
    processor->applyInitialSettings();
    return processor.release();
}
