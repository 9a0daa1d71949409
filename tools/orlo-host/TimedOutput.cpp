// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TimedOutput.h"

#include <chrono>
#include <thread>

namespace mk::orlo::host
{

TimedOutput::TimedOutput (PluginPlayer& playerToDrive) : juce::Thread ("timed output"), player (playerToDrive)
{
    player.prepare (player.getTrackRate(), blockSize);
    startThread (Priority::highest);
}

TimedOutput::~TimedOutput() { stopThread (-1); }

void TimedOutput::run()
{
    using Clock = std::chrono::steady_clock;
    using namespace std::chrono_literals;

    const auto blockLength = std::chrono::duration_cast<Clock::duration> (
        std::chrono::duration<double> (double (blockSize) / player.getTrackRate()));
    auto due = Clock::now();

    while (! threadShouldExit())
    {
        player.process (nullptr, 0, blockSize);
        due += blockLength;

        // After a long stall, such as a suspended machine, the missed blocks are skipped, not caught up.
        if (Clock::now() - due > 1s)
            due = Clock::now();

        std::this_thread::sleep_until (due);
    }
}

} // namespace mk::orlo::host
