// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetsManager.h"

namespace mk::pluginCore
{

/** The loading of a preset as a step of the undo history. [message thread] */
class PresetsManager::LoadPresetFileAction final : public juce::UndoableAction
{
public:
    /** Remembers the state and the current file as they are now. */
    LoadPresetFileAction (PresetState& pluginState, PresetsManager& manager, juce::File file);

    /** Loads the file. False if it cannot be read. */
    bool perform() override;

    /** Restores the previous parameters and the previous current file. Does not change the dirty flag. */
    bool undo() override;

private:
    PresetsManager& manager;
    const juce::File file, previousFile;
    const std::unique_ptr<juce::XmlElement> snapshot;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LoadPresetFileAction)
};

} // namespace mk::pluginCore
