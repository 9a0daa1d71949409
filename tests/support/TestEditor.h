// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::test
{

/** An empty plug-in window of a given size, for components that look for theirs. */
class TestEditor final : public juce::AudioProcessorEditor
{
public:
    TestEditor (int width, int height) : TestEditor (std::make_unique<juce::AudioProcessorGraph>(), width, height) {}

    void resized() override {}

private:
    TestEditor (std::unique_ptr<juce::AudioProcessor> processorToOwn, int width, int height)
        : juce::AudioProcessorEditor (processorToOwn.get()), ownedProcessor (std::move (processorToOwn))
    {
        setSize (width, height);
    }

    std::unique_ptr<juce::AudioProcessor> ownedProcessor;
};

} // namespace mk::orlo::test
