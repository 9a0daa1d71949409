// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "KeptSound.h"

#include <mutex>

namespace mk::orlo
{

/** Owns the sound that is kept, and hands it to the audio thread and to readers.

    Nothing is kept until start() is called. A reader holds the sound by a shared pointer, so it stays readable after
    stop(), and after a change of the sample rate has started another one. Failing to get the memory leaves the history
    off, and everything else works on.
*/
class SoundHistory
{
public:
    static constexpr double longestSeconds = 600.0;
    static constexpr double defaultSeconds = 60.0;

    SoundHistory() = default;
    ~SoundHistory();

    SoundHistory (const SoundHistory&) = delete;
    SoundHistory& operator= (const SoundHistory&) = delete;

    /** [host's or message thread, not while the audio thread pushes] The format of the blocks to come. If it differs
        from the one before, the kept sound starts anew. More than two channels count as two. Allocates. */
    void prepare (double sampleRate, int numChannels);

    /** [message thread] Keeps the newest seconds, 0 (nothing) to longestSeconds; what is out of range is limited.
        Sound of that length which is kept already stays. Allocates, which takes some milliseconds a minute. */
    void start (double seconds);

    /** [message thread] Gives the memory back as soon as no reader holds it. */
    void stop();

    /** [message thread] Keeps the sound that there is, for the next start(), but starts none anew if the format
        changes. */
    void stopButKeep();

    /** Any thread but the audio thread. Null while nothing is kept. */
    [[nodiscard]] std::shared_ptr<const KeptSound> getSound() const;

    /** [audio thread] Appends a block, if sound is kept. See KeptSound::push(). Wait-free, no allocation. */
    void push (const float* const* channels, int numChannels, int numSamples, const HostNote& note) noexcept;

private:
    void renew();
    void hand (std::shared_ptr<KeptSound> newSound);

    mutable std::mutex mutex; // guards the members below, of which the audio thread uses none
    double sampleRate = 0.0;  // 0 until prepared
    int numChannels = 0;
    double wantedSeconds = 0.0;
    double keptSeconds = 0.0; // what the sound has room for
    std::shared_ptr<KeptSound> sound;

    // The sound that the audio thread writes to, set by the other threads, and the one that it is writing to at this
    // moment, set by the audio thread: that one is not given back yet.
    std::atomic<KeptSound*> current { nullptr }, inUse { nullptr };
};

} // namespace mk::orlo
