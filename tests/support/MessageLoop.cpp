// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MessageLoop.h"

#include <juce_events/juce_events.h>

namespace juce::detail
{
// JUCE's internal step of the message loop. Its public function that runs the loop for a while exists only if
// modal loops are allowed, and then they are allowed in the plug-in as well.
bool dispatchNextMessageOnSystemQueue (bool returnIfNoPendingMessages);
} // namespace juce::detail

namespace mk::orlo::test
{

bool pumpUntil (const std::function<bool()>& condition, double timeoutSeconds)
{
    const auto deadline = juce::Time::getMillisecondCounterHiRes() + timeoutSeconds * 1000.0;

    while (! condition())
    {
        if (juce::Time::getMillisecondCounterHiRes() > deadline)
            return false;

        if (! juce::detail::dispatchNextMessageOnSystemQueue (true))
            juce::Thread::sleep (1);
    }

    return true;
}

void pumpPending()
{
    auto delivered = false;
    juce::MessageManager::callAsync ([&delivered] { delivered = true; });

    if (! pumpUntil ([&delivered] { return delivered; }))
        std::abort();
}

} // namespace mk::orlo::test
