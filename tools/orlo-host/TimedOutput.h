// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PluginPlayer.h"

namespace mk::orlo::host
{

/** Replaces a missing sound card: asks for blocks in real time and discards them. */
class TimedOutput final : private juce::Thread
{
public:
    /** Prepares the player, at its track's own rate, and starts. The player must outlive the output. */
    explicit TimedOutput (PluginPlayer& player);

    /** Stops. */
    ~TimedOutput() override;

    static constexpr int blockSize = 512;

private:
    void run() override;

    PluginPlayer& player;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TimedOutput)
};

} // namespace mk::orlo::host
