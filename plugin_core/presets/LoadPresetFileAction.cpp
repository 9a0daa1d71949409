// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LoadPresetFileAction.h"

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::pluginCore
{

PresetsManager::LoadPresetFileAction::LoadPresetFileAction (PluginProcessor& processor,
                                                            PresetsManager& managerToUse,
                                                            juce::File fileToLoad)
    : manager (managerToUse),
      file (std::move (fileToLoad)),
      previousFile (managerToUse.getCurrentPresetFile()),
      snapshot (processor.getStateXml (true))
{
}

bool PresetsManager::LoadPresetFileAction::perform() { return manager.applyPresetFile (file); }

bool PresetsManager::LoadPresetFileAction::undo()
{
    manager.goBackTo (previousFile, *snapshot);
    return true;
}

} // namespace mk::pluginCore
