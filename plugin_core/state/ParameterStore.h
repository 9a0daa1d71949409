// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <optional>
#include <vector>

namespace mk::pluginCore
{

/** Writes all parameters into a document and sets them from one, from any thread.

    It sets the parameters directly and not the value tree of juce::AudioProcessorValueTreeState: replacing that
    tree clears the undo history, even during an undo, and flushing it records into the undo manager, which only
    the message thread may use. No lock is held while a parameter calls its listeners, so the host may call back
    from them. The gestures of the locked parameters are the exception: one thread at a time makes them, under a
    lock, so a host must not wait in those callbacks for another thread that restores. */
class ParameterStore
{
public:
    /** Covers all parameters that the processor has at construction. */
    explicit ParameterStore (juce::AudioProcessorValueTreeState& state);

    /** Any thread. An element of the state tree's type with one "PARAM" child per parameter, in the order of
        the layout, with the attributes "id" and "value" (not normalised). While apply() runs on another
        thread, these are the values that it is going to set. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createXml() const;

    /** Any thread. Sets every parameter to its value in the document. A parameter that is missing there, or
        whose value is not a finite number, gets its default; values are clamped to the range;
        unknown entries are ignored. If several threads call it at once, all values are those of the last call.

        Locked parameters keep their value, and are set to it in a gesture of their own: a host that reads
        the document would otherwise assume that they have changed. */
    void apply (const juce::XmlElement& xml, const juce::StringArray& lockedIds);

    /** The tag of the documents. */
    [[nodiscard]] const juce::String& getTag() const noexcept { return tag; }

    /** [message thread] Copies the parameters to the value tree without an entry in the undo history. */
    void updateTree();

private:
    /** One value per parameter; nothing for a parameter that is not set. */
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
    juce::CriticalSection gestureLock; // held during the locked parameters' gestures
    Values arriving;                   // guarded by the lock: the newest values, empty when all are set
    juce::uint64 generation = 0;       // guarded by the lock: counts the arrivals
    int numThreadsApplying = 0;        // guarded by the lock

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ParameterStore)
};

} // namespace mk::pluginCore
