// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterStore.h"
#include "StateTree.h"

#include <atomic>

namespace mk::pluginCore
{

/** All that a plug-in keeps of itself but for its current preset: the parameters, what else a preset holds,
    and what belongs to a session alone. */
class SessionState final : private juce::AsyncUpdater
{
public:
    /** The parameters must all be there. The undo manager is the one the parameter state records into. */
    SessionState (juce::AudioProcessorValueTreeState& parameterState, juce::UndoManager& undoManager);
    ~SessionState() override;

    //==============================================================================
    /** Any thread. Adds the state to a document: what a preset holds, and for a session the attributes and
        the element of the settings. The given element, if any, goes to its place among the children. */
    void writeTo (juce::XmlElement& xml, bool forSession, std::unique_ptr<juce::XmlElement> lastPreset) const;

    /** Any thread. Takes over what the document has of all this; the locked parameters stay where they are. */
    void readFrom (const juce::XmlElement& xml, bool forSession);

    /** Any thread. Makes the present state one that no undo goes back from. Takes effect before the call
        returns on the message thread, and later otherwise. */
    void forgetUndoHistory();

    /** [message thread] Brings the parameters' tree up to date without an entry in the undo history. */
    void updateParameterTree() { parameters.updateTree(); }

    //==============================================================================
    /** Any thread. The parameters that a preset must not change. */
    [[nodiscard]] juce::StringArray getLockedParams() const;
    void setLockedParams (const juce::StringArray& ids);

    /** Any thread. Takes the list from a session; one without a list locks none. */
    void readLockedParams (const juce::XmlElement& xml);

    /** Any thread. The last restored state as blobs: the session as it came in, and as a preset. */
    [[nodiscard]] juce::MemoryBlock getSessionStateCopy() const;
    [[nodiscard]] juce::MemoryBlock getPresetStateCopy() const;

    /** Any thread. Keeps new copies; a null session leaves its copy as it is. */
    void setStateCopies (const juce::XmlElement* session, const juce::XmlElement& preset);

    /** The product's own data, kept in sessions and presets. */
    [[nodiscard]] StateTree& getData() noexcept { return data; }

    /** The state that outlives the editor; a session holds it, a preset does not. */
    [[nodiscard]] StateTree& getSettings() noexcept { return settings; }

    /** The editor's last size in pixels; not above 0 if there is none. Written and read by the message
        thread and by the host's. */
    std::atomic<int> pluginEditorWidth { 0 }, pluginEditorHeight { 0 };

private:
    void handleAsyncUpdate() override;
    void followOnMessageThread();

    juce::UndoManager& undoManager;
    ParameterStore parameters;
    StateTree data { "Data" }, settings { "Settings" };

    std::atomic<bool> undoHistoryIsOld { false }; // set by any thread, cleared by the message thread

    juce::CriticalSection lock;
    juce::StringArray lockedParams;            // guarded by the lock
    juce::MemoryBlock sessionCopy, presetCopy; // guarded by the lock

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SessionState)
};

} // namespace mk::pluginCore
