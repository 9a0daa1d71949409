// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <optional>
#include <vector>

namespace mk::pluginCore
{

/** Writes all parameters into a document and sets them from one, from any thread.

    The value tree of juce::AudioProcessorValueTreeState is not used for it: replacing that tree drops the
    undo history, even from within an undo, and flushing it records into an undo manager that is the message
    thread's. The parameters themselves are set instead. No lock is held while a parameter tells its
    listeners, so a host may do what it likes in answer; only the locked parameters are spoken for by one thread
    at a time, whose host must not wait for another thread's restore in answer. */
class ParameterStore
{
public:
    /** Takes all parameters the processor has at this time. */
    explicit ParameterStore (juce::AudioProcessorValueTreeState& state);

    /** Any thread. An element of the state tree's type with one "PARAM" child per parameter, in the order of
        the layout, with the attributes "id" and "value" (not normalised). While apply() runs on another
        thread these are the values that it is about to set. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createXml() const;

    /** Any thread. Sets every parameter to what the document holds. One that the document lacks, or whose
        value is no finite number, gets its default; a value beyond the range gets the nearest end of it;
        unknown entries are ignored. Of several calls at a time the last one wins as a whole.

        Locked parameters keep their value, and are set to it by a gesture of their own, so that a host that
        follows the document learns that they did not move. */
    void apply (const juce::XmlElement& xml, const juce::StringArray& lockedIds);

    /** The tag of the documents. */
    [[nodiscard]] const juce::String& getTag() const noexcept { return tag; }

    /** [message thread] Brings the value tree up to date without an entry in the undo history. */
    void updateTree();

private:
    /** One value per parameter; nothing for one that is left alone. */
    using Values = std::vector<std::optional<float>>;

    [[nodiscard]] float getCurrentValue (size_t index) const noexcept;
    [[nodiscard]] Values readValues (const juce::XmlElement& xml) const;
    [[nodiscard]] float getLegalValue (size_t index, const juce::String& text) const;
    void announce (Values values);
    [[nodiscard]] bool setAnnounced();

    juce::AudioProcessorValueTreeState& state;
    const juce::String tag;
    std::vector<juce::RangedAudioParameter*> parameters;
    std::vector<std::atomic<float>*> currentValues;

    juce::CriticalSection lock;
    juce::CriticalSection gestureLock; // held while the locked parameters speak
    Values arriving;                   // guarded by the lock: the newest values, empty when all are set
    juce::uint64 generation = 0;       // guarded by the lock: counts the arrivals
    int numThreadsApplying = 0;        // guarded by the lock

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ParameterStore)
};

} // namespace mk::pluginCore
