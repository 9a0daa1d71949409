// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterStore.h"
#include "StateTree.h"

#include <atomic>

namespace mk::pluginCore
{

/** The saved state of a plug-in without its current preset: the parameters, the other contents of a preset,
    and what only sessions store. */
class SessionState final : private juce::AsyncUpdater
{
public:
    /** All parameters must exist already. The undo manager is the one that the parameter state records into. */
    SessionState (juce::AudioProcessorValueTreeState& parameterState, juce::UndoManager& undoManager);
    ~SessionState() override;

    //==============================================================================
    /** Any thread. Adds the state to a document: the contents of a preset, and for a session also the attributes
        and the settings element. lastPreset, if not null, is inserted at its position among the children. */
    void writeTo (juce::XmlElement& xml, bool forSession, std::unique_ptr<juce::XmlElement> lastPreset) const;

    /** Any thread. Applies the parts that the document contains; locked parameters keep their values. */
    void readFrom (const juce::XmlElement& xml, bool forSession);

    /** Any thread. Clears the undo history. On the message thread this happens before the call returns, unless an
        undo is in progress; on other threads it happens later. */
    void forgetUndoHistory();

    /** [message thread] Copies the parameters to their value tree without an entry in the undo history. */
    void updateParameterTree() { parameters.updateTree(); }

    //==============================================================================
    /** Any thread. The parameters that a preset must not change. */
    [[nodiscard]] juce::StringArray getLockedParams() const;
    void setLockedParams (const juce::StringArray& ids);

    /** Any thread. Reads the list from a session; a session without a list locks no parameter. */
    void readLockedParams (const juce::XmlElement& xml);

    /** Any thread. The last restored state as blobs: the session as it was given, and its preset form. */
    [[nodiscard]] juce::MemoryBlock getSessionStateCopy() const;
    [[nodiscard]] juce::MemoryBlock getPresetStateCopy() const;

    /** Any thread. Stores new copies; if session is null, the stored session copy is kept. */
    void setStateCopies (const juce::XmlElement* session, const juce::XmlElement& preset);

    /** The product's own data, stored in sessions and presets. */
    [[nodiscard]] StateTree& getData() noexcept { return data; }

    /** [message thread, before any state is read] The properties of the data that presets hold. A preset or session
        without data sets them back. */
    void setPresetProperties (juce::StringArray names) { presetProperties = std::move (names); }

    /** The settings that outlive the editor; stored in sessions but not in presets. */
    [[nodiscard]] StateTree& getSettings() noexcept { return settings; }

    /** The editor's last size in pixels; 0 or negative if there is none. Written and read by the message
        thread and by the host's threads. */
    std::atomic<int> pluginEditorWidth { 0 }, pluginEditorHeight { 0 };

private:
    void handleAsyncUpdate() override;
    void followOnMessageThread();

    juce::UndoManager& undoManager;
    ParameterStore parameters;
    StateTree data { "Data" }, settings { "Settings" };
    juce::StringArray presetProperties; // constant after the start

    std::atomic<bool> undoHistoryIsOld { false }; // set by any thread, cleared by the message thread

    juce::CriticalSection lock;
    juce::StringArray lockedParams;            // guarded by the lock
    juce::MemoryBlock sessionCopy, presetCopy; // guarded by the lock

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SessionState)
};

} // namespace mk::pluginCore
