// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** The interface through which a processor uses the editor that it returns to the host. [message thread] */
class ProcessorEditor : public juce::AudioProcessorEditor
{
public:
    using juce::AudioProcessorEditor::AudioProcessorEditor;

    /** Sets the first size of the fully constructed editor, within its limits. No size before this call is stored
        as the user's. Called once, by PluginProcessor::createEditor(). */
    virtual void open (int width, int height) = 0;

    /** Starts an update check if one is due. Called once, by PluginProcessor::createEditor(). */
    virtual void startUpdateCheck() = 0;
};

} // namespace mk::pluginCore
