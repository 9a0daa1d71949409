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
    // The file as it is now: it may have gone while the menu was open.
    if (const auto file = presets.getCurrentPresetFile(); file != juce::File() && file.existsAsFile())
        presets.savePresetFile (file, false);
}

void PresetMenuActions::loadInit()
{
    const auto file = presets.getInitFile();

    if (! presets.isPresetFile (file))
        return;

    // The colours are a matter of taste and of the room's light, not of the analysis: they stay.
    auto& colourMap = *processor.getParameterState().getParameter (Params::id::colourMap);
    const auto index = std::round (colourMap.convertFrom0to1 (colourMap.getValue()));
    const auto kept = colourMap.convertTo0to1 (index);

    presets.loadPresetFile (file, &processor.getUndoManager());
    colourMap.setValueNotifyingHost (kept);

    // Into the load's own step: undoing what the user does next must not change the colours.
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
