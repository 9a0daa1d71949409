// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::test
{

/** The processor of a TestEditor, in a base class of its own so that it outlives juce::AudioProcessorEditor. */
struct TestEditorProcessor
{
    juce::AudioProcessorGraph graph;
};

/** An empty plug-in window of a given size, for components that look for the window they are in. */
class TestEditor final : private TestEditorProcessor, public juce::AudioProcessorEditor
{
public:
    TestEditor (int width, int height) : juce::AudioProcessorEditor (graph) { setSize (width, height); }

    void resized() override {}
};

} // namespace mk::orlo::test
