// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LoadPresetFileAction.h"

namespace mk::pluginCore
{

PresetsManager::LoadPresetFileAction::LoadPresetFileAction (PresetState& pluginState,
                                                            PresetsManager& managerToUse,
                                                            juce::File fileToLoad)
    : manager (managerToUse),
      file (std::move (fileToLoad)),
      previousFile (managerToUse.getCurrentPresetFile()),
      snapshot (pluginState.getStateXml (true))
{
}

bool PresetsManager::LoadPresetFileAction::perform() { return manager.applyPresetFile (file); }

bool PresetsManager::LoadPresetFileAction::undo()
{
    manager.goBackTo (previousFile, *snapshot);
    return true;
}

} // namespace mk::pluginCore
