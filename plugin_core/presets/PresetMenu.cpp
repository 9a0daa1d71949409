// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetMenu.h"

#include "PresetSearch.h"

#include <algorithm>
#include <vector>

namespace mk::pluginCore
{
namespace
{
// Limits the recursion through links; real folders are never nested this deeply.
constexpr size_t maxDepth = 64;

/** Whether "Save" may write to the file: only the user's own presets are overwritten. */
[[nodiscard]] bool canSaveTo (const juce::File& file, const PresetsManager& manager)
{
    return file != juce::File() && file.existsAsFile() && file.isAChildOf (manager.getUserFolder())
           && file.hasWriteAccess();
}

/** The files and folders of a folder, mixed, in natural order and ignoring case: "Bass 2" before "bass 10". */
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

/** Adds a row for each preset below a folder, and a submenu for each folder that contains presets. */
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

    /** Whether a folder links to one of its own parents, so that its submenus would never end. */
    [[nodiscard]] bool leadsBackUp (const juce::File& folder) const
    {
        return foldersAbove.size() >= maxDepth
               || std::find (foldersAbove.begin(), foldersAbove.end(), folder.getLinkedTarget()) != foldersAbove.end();
    }

    void addFolder (juce::PopupMenu& menu, const juce::File& folder)
    {
        auto presets = make (folder);

        // folderHasPresets() counts hidden presets too, so a menu without rows is possible.
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

    // If all presets are hidden, the menu has no rows and is left out.
    if (auto presets = FolderRows (manager, current, result.presetFiles).make (manager.getUserFolder());
        presets.getNumItems() > 0)
        menu.addSubMenu ("Presets", std::move (presets));

    return result;
}

juce::File PresetMenu::getPresetFile (int id) const
{
    // juce::Array returns an empty file for an index out of range.
    return presetFiles[id - firstPreset];
}

} // namespace mk::pluginCore
