// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** What a processor knows of the window that it hands to the host. [message thread] */
class ProcessorEditor : public juce::AudioProcessorEditor
{
public:
    using juce::AudioProcessorEditor::AudioProcessorEditor;

    /** Gives the complete window its first size, within its limits. Until then no size is remembered as the
        user's. Called once, by PluginProcessor::createEditor(). */
    virtual void open (int width, int height) = 0;

    /** Asks for a new version if it is time to. Called once, by PluginProcessor::createEditor(). */
    virtual void startUpdateCheck() = 0;
};

} // namespace mk::pluginCore
