// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "EditorWindow.h"
#include "HostOptions.h"
#include "SoundCardOutput.h"
#include "TimedOutput.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace mk::orlo::host
{

/** One run of the program: loads the plug-in, plays audio through it and shows its editor. [message thread] */
class HostSession final : private juce::MultiTimer
{
public:
    /** Loads the plug-in, opens the window and starts the audio. On failure stops all and throws HostError. */
    explicit HostSession (HostOptions options);

    /** Stops the audio, closes the window and unloads the plug-in, in that order. */
    ~HostSession() override;

    /** Called when the user closes the window or the time is over. */
    std::function<void()> onFinished;

    /** One line that names the track, the plug-in and the output device. */
    [[nodiscard]] juce::String describe() const;

    /** Writes what the options ask for: the picture, then the state. Throws HostError, also for what failed on the way. */
    void writeResults();

private:
    enum Timers
    {
        endTimer,
        freezeTimer,
        exploreTimer
    };

    void timerCallback (int timer) override;
    void startTimerFor (int timer, double seconds);
    void finish();
    void startOutput();

    static constexpr int loadingBlockSize = 512;

    const HostOptions options;
    std::unique_ptr<juce::AudioPluginInstance> plugin;
    std::optional<PluginPlayer> player;
    std::unique_ptr<EditorWindow> window;
    std::unique_ptr<SoundCardOutput> soundCard;
    std::unique_ptr<TimedOutput> timedOutput;
    std::exception_ptr failure; // of what the timers did

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (HostSession)
};

} // namespace mk::orlo::host
