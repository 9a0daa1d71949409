// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetMenuActions.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/Product.h"

#include "plugin_core/attachments/UndoFlush.h"
#include "plugin_core/presets/PresetReference.h"
#include "plugin_core/processor/PluginProcessor.h"

#include <cmath>

namespace mk::orlo
{
using pluginCore::PresetMenu;

PresetMenuActions::PresetMenuActions (pluginCore::PluginProcessor& processorToUse)
    : showPage ([] (const juce::URL& url) { url.launchInDefaultBrowser(); }),
      showFolder ([] (const juce::File& folder) { folder.revealToUser(); }),
      processor (processorToUse),
      presets (processorToUse.getPresetsManager())
{
}

PresetMenu PresetMenuActions::makeMenu() const
{
    // In AAX the host itself keeps the default.
    return PresetMenu::make (presets, processor.wrapperType != juce::AudioProcessor::wrapperType_AAX);
}

void PresetMenuActions::perform (int id, const PresetMenu& menu)
{
    if (id < 1)
        return;

    switch (id)
    {
        case PresetMenu::save: save(); break;
        case PresetMenu::saveAs: presets.savePresetAs (true); break;
        case PresetMenu::init: loadInit(); break;
        case PresetMenu::setAsDefault: setAsDefault (menu.currentPresetFile); break;
        case PresetMenu::revealFolder: showFolder (presets.getUserFolder()); break;
        case PresetMenu::manual: showPage (getManualUrl (processor)); break;
        default: presets.loadPresetFile (menu.getPresetFile (id), &processor.getUndoManager()); break;
    }
}

void PresetMenuActions::save()
{
    // The file may have been deleted while the menu was open, so this checks that it still exists.
    if (const auto file = presets.getCurrentPresetFile(); file != juce::File() && file.existsAsFile())
        presets.savePresetFile (file, false);
}

void PresetMenuActions::loadInit()
{
    const auto file = presets.getInitFile();

    if (! presets.isPresetFile (file))
        return;

    // The colour map depends on taste and on the light in the room, not on the analysis, so it is kept.
    auto& colourMap = *processor.getParameterState().getParameter (Params::id::colourMap);
    const auto index = std::round (colourMap.convertFrom0to1 (colourMap.getValue()));
    const auto kept = colourMap.convertTo0to1 (index);

    presets.loadPresetFile (file, &processor.getUndoManager());
    colourMap.setValueNotifyingHost (kept);

    // Undoing the user's next action must not change the colours, so they are recorded in the load's transaction.
    pluginCore::flushIntoTransaction (processor.getParameterState());
}

void PresetMenuActions::setAsDefault (const juce::File& file)
{
    if (! presets.isPresetFile (file))
        return;

    const auto reference = pluginCore::PresetReference::fromFile (file, presets.getFolders());

    if (reference.rootIndex == pluginCore::PresetReference::noRoot)
        return;

    juce::XmlElement xml (pluginCore::SettingsIds::defaultPreset);
    reference.writeTo (xml);
    const pluginCore::PluginGlobalSettings settings;
    settings.getSettings().setProperty (pluginCore::SettingsIds::defaultPreset, xml.toString(), nullptr);
}

} // namespace mk::orlo
