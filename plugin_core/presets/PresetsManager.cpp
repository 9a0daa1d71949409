// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetsManager.h"

#include "LoadPresetFileAction.h"
#include "PresetReference.h"

#include "plugin_core/files/FileReplacement.h"
#include "plugin_core/files/UntrustedXml.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto lastPresetTag = "lastPreset";
constexpr auto dirtyAttribute = "dirty";

/** Sets a flag for the lifetime of the object. */
class TrueWithinScope
{
public:
    explicit TrueWithinScope (std::atomic<bool>& flagToSet) noexcept : flag (flagToSet)
    {
        flag.store (true, std::memory_order_release);
    }

    ~TrueWithinScope() { flag.store (false, std::memory_order_release); }

private:
    std::atomic<bool>& flag;

    JUCE_DECLARE_NON_COPYABLE (TrueWithinScope)
};
} // namespace

PresetsManager::PresetsManager (PresetState& stateToUse, PresetFolders foldersToUse)
    : pluginState (stateToUse), folders (std::move (foldersToUse))
{
}

//==============================================================================
bool PresetsManager::isPresetFile (const juce::File& file) const
{
    return file != juce::File() && file.existsAsFile() && ! file.isHidden()
           && file.hasFileExtension (folders.fileExtension);
}

bool PresetsManager::loadPresetFile (const juce::File& file, juce::UndoManager* undoManager)
{
    if (undoManager == nullptr)
        return applyPresetFile (file);

    // The user's parameter changes so far belong to the previous undo step.
    pluginState.flushParameterChanges();
    undoManager->beginNewTransaction();
    return undoManager->perform (new LoadPresetFileAction (pluginState, *this, file));
}

bool PresetsManager::applyPresetFile (const juce::File& file)
{
    const TrueWithinScope scopedLoading (loading);

    const auto xml = parseUntrustedXml (file);

    if (xml == nullptr)
        return false;

    setCurrentPresetFile (file);
    pluginState.setStateFromXml (*xml, false);
    setDirty (false);
    callListeners ([this, &file] (Listener& listener) { listener.presetFileLoaded (*this, file); });
    return true;
}

void PresetsManager::goBackTo (const juce::File& previousFile, const juce::XmlElement& snapshot)
{
    const TrueWithinScope scopedLoading (loading);
    setCurrentPresetFile (previousFile);
    pluginState.setStateFromXml (snapshot, false);
    pluginState.refreshStateCopies();
}

//==============================================================================
void PresetsManager::savePresetFile (const juce::File& file, bool reloadAfterSaving)
{
    setCurrentPresetFile (file);
    const auto isWritten = replaceFileContent (file, pluginState.getStateXml (false)->toString());

    if (! reloadAfterSaving)
        setDirty (false);
    else if (isWritten)
        loadPresetFile (file, &pluginState.getUndoManager());
}

void PresetsManager::savePresetAs (bool reloadAfterSaving)
{
    constexpr auto flags = juce::FileBrowserComponent::saveMode | juce::FileBrowserComponent::canSelectFiles
                           | juce::FileBrowserComponent::warnAboutOverwriting;

    overwriteQuestion.close();
    fileChooser = std::make_unique<juce::FileChooser> ("save...", getFolderToSaveIn(), "*" + folders.fileExtension);
    fileChooser->launchAsync (flags,
                              [this, reloadAfterSaving] (const juce::FileChooser& chooser)
                              { saveChosenFile (chooser.getResult(), reloadAfterSaving); });
}

juce::File PresetsManager::getFolderToSaveIn() const
{
    if (lastSaveFolder.isDirectory())
        return lastSaveFolder;

    const auto current = getCurrentPresetFile();

    if (current.existsAsFile() && current.isAChildOf (getUserFolder()))
        return current.getParentDirectory();

    return getUserFolder();
}

void PresetsManager::saveChosenFile (const juce::File& chosenFile, bool reloadAfterSaving)
{
    if (chosenFile == juce::File())
        return;

    // The menu shows only files with the extension, so a missing one is added.
    const auto isComplete = chosenFile.hasFileExtension (folders.fileExtension);
    const auto file = isComplete ? chosenFile : juce::File (chosenFile.getFullPathName() + folders.fileExtension);

    // The dialog has checked only the name as it was typed, so the completed name needs a check here.
    if (! isComplete && file.exists())
        askToOverwrite (file, reloadAfterSaving);
    else
        saveAndRemember (file, reloadAfterSaving);
}

void PresetsManager::askToOverwrite (const juce::File& file, bool reloadAfterSaving)
{
    const auto question =
        juce::translate ("There's already a file called: FLNM").replace ("FLNM", file.getFullPathName()) + "\n\n"
        + juce::translate ("Are you sure you want to overwrite it?");
    const auto options = juce::MessageBoxOptions::makeOptionsOkCancel (juce::MessageBoxIconType::WarningIcon,
                                                                       juce::translate ("File already exists"),
                                                                       question,
                                                                       juce::translate ("Overwrite"),
                                                                       juce::translate ("Cancel"));

    overwriteQuestion = juce::AlertWindow::showScopedAsync (options,
                                                            [this, file, reloadAfterSaving] (int answer)
                                                            {
                                                                if (answer != 0)
                                                                    saveAndRemember (file, reloadAfterSaving);
                                                            });
}

void PresetsManager::saveAndRemember (const juce::File& file, bool reloadAfterSaving)
{
    if (file.isAChildOf (getUserFolder()))
        lastSaveFolder = file.getParentDirectory();

    savePresetFile (file, reloadAfterSaving);
}

//==============================================================================
juce::File PresetsManager::getCurrentPresetFile() const
{
    const juce::ScopedLock scopedLock (lock);
    return currentPresetFile;
}

void PresetsManager::setCurrentPresetFile (const juce::File& file)
{
    auto copy = file;
    const juce::ScopedLock scopedLock (lock);
    std::swap (currentPresetFile, copy);
}

void PresetsManager::setDirty (bool shouldBeDirty)
{
    if (dirty.exchange (shouldBeDirty, std::memory_order_relaxed) != shouldBeDirty)
        callListeners ([this, shouldBeDirty] (Listener& listener)
                       { listener.presetDirtyChanged (*this, shouldBeDirty); });
}

//==============================================================================
std::unique_ptr<juce::XmlElement> PresetsManager::createLastPresetXml() const
{
    const auto current = getCurrentPresetFile();

    if (current == juce::File())
        return nullptr;

    auto xml = std::make_unique<juce::XmlElement> (lastPresetTag);
    PresetReference::fromFile (current, folders).writeTo (*xml);
    xml->setAttribute (dirtyAttribute, isDirty() ? 1 : 0);
    return xml;
}

void PresetsManager::setCurrentPresetFromXml (const juce::XmlElement& lastPreset)
{
    setCurrentPresetFile (PresetReference::fromXml (lastPreset).resolve (folders));
}

void PresetsManager::setDirtyFromXml (const juce::XmlElement& lastPreset)
{
    setDirty (lastPreset.getBoolAttribute (dirtyAttribute));
}

void PresetsManager::sendLockedParamsChanged()
{
    callListeners ([this] (Listener& listener) { listener.lockedParamsChanged (*this); });
}

//==============================================================================
void PresetsManager::addListener (Listener* listener)
{
    listeners.add (listener);
    numListeners.store (listeners.size(), std::memory_order_release);
}

void PresetsManager::removeListener (Listener* listener)
{
    listeners.remove (listener);
    numListeners.store (listeners.size(), std::memory_order_release);
}

template <typename Callback>
void PresetsManager::callListeners (Callback&& callback)
{
    if (numListeners.load (std::memory_order_acquire) > 0)
        listeners.call (std::forward<Callback> (callback));
}

} // namespace mk::pluginCore
