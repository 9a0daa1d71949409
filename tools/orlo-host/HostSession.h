// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "EditorWindow.h"
#include "HostOptions.h"
#include "SoundCardOutput.h"
#include "TimedOutput.h"

#include <functional>
#include <memory>
#include <optional>

namespace mk::orlo::host
{

/** The plug-in, loaded, playing and shown, from start to end. [message thread] */
class HostSession final : private juce::Timer
{
public:
    /** Loads, sets, opens and starts everything. Throws HostError with nothing left running. */
    explicit HostSession (HostOptions options);

    /** Stops the audio, closes the window and lets the plug-in go, in that order. */
    ~HostSession() override;

    /** The user closed the window, or the time is over. */
    std::function<void()> onFinished;

    /** What plays, through what, and where to, in one line. */
    [[nodiscard]] juce::String describe() const;

    /** Writes what the options ask for: the picture, then the state. Throws HostError. */
    void writeResults();

private:
    void timerCallback() override;
    void finish();
    void startOutput();

    static constexpr int loadingBlockSize = 512;

    const HostOptions options;
    std::unique_ptr<juce::AudioPluginInstance> plugin;
    std::optional<PluginPlayer> player;
    std::unique_ptr<EditorWindow> window;
    std::unique_ptr<SoundCardOutput> soundCard;
    std::unique_ptr<TimedOutput> timedOutput;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (HostSession)
};

} // namespace mk::orlo::host
