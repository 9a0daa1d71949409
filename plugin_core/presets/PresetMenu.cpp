// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetMenu.h"

#include "PresetSearch.h"

#include <algorithm>
#include <vector>

namespace mk::pluginCore
{
namespace
{
// Wherever links lead, a chain of real folders ends before this.
constexpr size_t maxDepth = 64;

/** Whether "Save" has a file to write to: only the user's own presets are written over. */
[[nodiscard]] bool canSaveTo (const juce::File& file, const PresetsManager& manager)
{
    return file != juce::File() && file.existsAsFile() && file.isAChildOf (manager.getUserFolder())
           && file.hasWriteAccess();
}

/** What lies in a folder, in the order that people count: "Bass 2" before "bass 10", folders among files. */
[[nodiscard]] std::vector<juce::File> findChildren (const juce::File& folder)
{
    std::vector<juce::File> children;

    for (const auto& entry : juce::RangedDirectoryIterator (
             folder, false, "*", juce::File::findFilesAndDirectories | juce::File::ignoreHiddenFiles))
        children.push_back (entry.getFile());

    std::sort (children.begin(),
               children.end(),
               [] (const juce::File& a, const juce::File& b)
               {
                   const auto order = a.getFullPathName().compareNatural (b.getFullPathName(), false);
                   return order != 0 ? order < 0 : a.getFullPathName() < b.getFullPathName();
               });
    return children;
}

/** Adds a row for each preset below a folder, and a menu for each folder that has any. */
class FolderRows
{
public:
    FolderRows (const PresetsManager& managerToUse, const juce::File& current, juce::Array<juce::File>& filesToFill)
        : manager (managerToUse), currentFile (current), files (filesToFill)
    {
    }

    [[nodiscard]] juce::PopupMenu make (const juce::File& folder)
    {
        juce::PopupMenu menu;
        foldersAbove.push_back (folder.getLinkedTarget());

        for (const auto& child : findChildren (folder))
        {
            if (! child.isDirectory())
                addFile (menu, child);
            else if (! leadsBackUp (child) && folderHasPresets (child, "*" + manager.getFileExtension()))
                addFolder (menu, child);
        }

        foldersAbove.pop_back();
        return menu;
    }

private:
    void addFile (juce::PopupMenu& menu, const juce::File& file)
    {
        if (! manager.isPresetFile (file) || file == manager.getInitFile())
            return;

        menu.addItem (
            PresetMenu::firstPreset + files.size(), file.getFileNameWithoutExtension(), true, file == currentFile);
        files.add (file);
    }

    /** Whether a folder is a link to one that holds it, so that its rows would never end. */
    [[nodiscard]] bool leadsBackUp (const juce::File& folder) const
    {
        return foldersAbove.size() >= maxDepth
               || std::find (foldersAbove.begin(), foldersAbove.end(), folder.getLinkedTarget()) != foldersAbove.end();
    }

    void addFolder (juce::PopupMenu& menu, const juce::File& folder)
    {
        auto presets = make (folder);

        // The search counts hidden presets too, which have no row.
        if (presets.getNumItems() > 0)
            menu.addSubMenu (folder.getFileName(), std::move (presets), true, nullptr, currentFile.isAChildOf (folder));
    }

    const PresetsManager& manager;
    const juce::File& currentFile;
    juce::Array<juce::File>& files;
    std::vector<juce::File> foldersAbove;
};
} // namespace

PresetMenu PresetMenu::make (const PresetsManager& manager, bool withDefaultPreset)
{
    PresetMenu result;
    auto& menu = result.menu;
    result.currentPresetFile = manager.getCurrentPresetFile();
    const auto& current = result.currentPresetFile;

    menu.addItem (save, juce::translate ("Save"), canSaveTo (current, manager));
    menu.addItem (saveAs, juce::translate ("Save as") + "...");
    menu.addSeparator();

    if (withDefaultPreset)
        menu.addItem (setAsDefault,
                      juce::translate ("Set Preset as Default"),
                      manager.isPresetFile (current) && current != manager.getInitFile());

    if (manager.isPresetFile (manager.getInitFile()))
        menu.addItem (init, juce::translate ("Init"));

    menu.addSeparator();
    menu.addItem (manual, juce::translate ("Manual"));
    menu.addSeparator();

    // Without a row of its own a folder of hidden presets would show as an empty menu.
    if (auto presets = FolderRows (manager, current, result.presetFiles).make (manager.getUserFolder());
        presets.getNumItems() > 0)
        menu.addSubMenu ("Presets", std::move (presets));

    return result;
}

juce::File PresetMenu::getPresetFile (int id) const
{
    // Out of range gives an empty file.
    return presetFiles[id - firstPreset];
}

} // namespace mk::pluginCore
