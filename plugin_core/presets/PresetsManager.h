// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetFolders.h"
#include "PresetState.h"

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <atomic>
#include <memory>

namespace mk::pluginCore
{

/** Saves and loads a plug-in's settings as preset files, and tracks the session's current preset and whether
    the parameters differ from it. Message thread unless stated otherwise. No failure is reported:
    if a file cannot be read or written, nothing changes. */
class PresetsManager
{
public:
    /** Called on the thread that caused the event. For the dirty flag this may be any thread, including the
        audio thread under automation. Listeners may be added and removed on any thread. */
    class Listener
    {
    public:
        virtual ~Listener() = default;

        virtual void presetFileLoaded (PresetsManager& manager, const juce::File& file) = 0;
        virtual void presetDirtyChanged (PresetsManager& manager, bool isDirty) = 0;

        /** A session has set the list of parameters that a preset must not change. */
        virtual void lockedParamsChanged (PresetsManager&) {}
    };

    PresetsManager (PresetState& pluginState, PresetFolders folders);

    //==============================================================================
    /** Any thread. Whether the path is an existing file, not a folder or hidden, with the presets' extension. */
    [[nodiscard]] bool isPresetFile (const juce::File& file) const;

    /** Applies a preset; if an undo manager is given, as a new transaction of it. Returns false and changes
        nothing if the file cannot be read or is not XML. A preset of another product becomes the current
        file, but changes no parameter. */
    bool loadPresetFile (const juce::File& file, juce::UndoManager* undoManager);

    /** Writes the state and makes the file the current one, whether the write succeeds or not. Reloading
        records the new file at once in the processor's undo history. After a failed write the file is not
        loaded, since an older file of that name would replace the user's settings. */
    void savePresetFile (const juce::File& file, bool reloadAfterSaving);

    /** Opens a file dialog and saves to the file that the user chooses. */
    void savePresetAs (bool reloadAfterSaving);

    /** The folder that the dialog opens at. */
    [[nodiscard]] juce::File getFolderToSaveIn() const;

    /** Called with the file chosen in the dialog; does nothing if it is empty. Adds the presets' extension if
        it is missing. If a file of the completed name exists, which the dialog has not asked about, a message
        box asks the user whether to replace it. */
    void saveChosenFile (const juce::File& file, bool reloadAfterSaving);

    //==============================================================================
    /** Any thread. The session's current preset; an empty file if there is none. */
    [[nodiscard]] juce::File getCurrentPresetFile() const;

    /** Any thread. Makes the file the current one without loading it. */
    void setCurrentPresetFile (const juce::File& file);

    /** Any thread, wait-free. Whether the parameters differ from the current preset. */
    [[nodiscard]] bool isDirty() const noexcept { return dirty.load (std::memory_order_relaxed); }

    /** Any thread. Stores the flag, and tells the listeners if it changes. */
    void setDirty (bool shouldBeDirty);

    /** Any thread, wait-free. Whether a file is being applied, or its loading undone. */
    [[nodiscard]] bool isLoading() const noexcept { return loading.load (std::memory_order_acquire); }

    //==============================================================================
    /** Any thread. The element "lastPreset" of a session; null if there is no current preset. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createLastPresetXml() const;

    /** Any thread. Makes the preset that the element refers to the current one, without loading it. */
    void setCurrentPresetFromXml (const juce::XmlElement& lastPreset);

    /** Any thread. Takes the flag from the element. */
    void setDirtyFromXml (const juce::XmlElement& lastPreset);

    /** Any thread. */
    void sendLockedParamsChanged();

    //==============================================================================
    [[nodiscard]] const PresetFolders& getFolders() const noexcept { return folders; }
    [[nodiscard]] juce::File getFactoryFolder() const { return folders.factoryFolder; }
    [[nodiscard]] juce::File getUserFolder() const { return folders.userFolder; }
    [[nodiscard]] juce::File getDesignersFolder() const { return folders.designersFolder; }
    [[nodiscard]] juce::File getInitFile() const { return folders.initFile; }
    [[nodiscard]] const juce::String& getFileExtension() const noexcept { return folders.fileExtension; }

    void addListener (Listener* listener);
    void removeListener (Listener* listener);

private:
    class LoadPresetFileAction;

    [[nodiscard]] bool applyPresetFile (const juce::File& file);
    void goBackTo (const juce::File& previousFile, const juce::XmlElement& snapshot);
    void askToOverwrite (const juce::File& file, bool reloadAfterSaving);
    void saveAndRemember (const juce::File& file, bool reloadAfterSaving);

    template <typename Callback>
    void callListeners (Callback&& callback);

    std::unique_ptr<juce::FileChooser> fileChooser;
    juce::ScopedMessageBox overwriteQuestion;
    juce::ThreadSafeListenerList<Listener> listeners;
    std::atomic<int> numListeners { 0 }; // lets the audio thread skip an empty list without its lock
    PresetState& pluginState;
    const PresetFolders folders;

    mutable juce::CriticalSection lock;
    juce::File currentPresetFile; // guarded by the lock

    std::atomic<bool> dirty { false };
    juce::File lastSaveFolder;
    std::atomic<bool> loading { false }; // written by the message thread, read by any

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PresetsManager)
};

} // namespace mk::pluginCore
