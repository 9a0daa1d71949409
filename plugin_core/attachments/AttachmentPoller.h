// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_events/juce_events.h>

namespace mk::pluginCore
{

/** Whether the calling thread may touch components. juce::MessageManager::isThisTheMessageThread() takes a lock, which
    an audio thread must not; this does not. Any thread. */
[[nodiscard]] inline bool mayTouchComponents() noexcept
{
    const auto* const manager = juce::MessageManager::getInstanceWithoutCreating();
    return manager != nullptr && manager->currentThreadHasLockedMessageManager();
}

/** Delivers values that other threads have stored to their clients on the message thread.

    Posting a message takes a lock and a system call and may allocate, none of which an audio thread may do. So
    writers only set a flag, and this class polls the flags at the rate of a display while there are clients.
    One for all instances of the plug-in; keep it in a juce::SharedResourcePointer. [message thread] */
class AttachmentPoller final : private juce::Timer
{
public:
    struct Client
    {
        virtual ~Client() = default;

        /** [message thread] Called at every poll. May add and remove clients, including itself. */
        virtual void deliverPending() = 0;
    };

    void add (Client& client)
    {
        clients.add (&client);
        startTimerHz (turnsPerSecond);
    }

    void remove (Client& client)
    {
        clients.remove (&client);

        if (clients.isEmpty())
            stopTimer();
    }

    /** Polls at once, without waiting for the timer. */
    void deliverNow() { timerCallback(); }

private:
    static constexpr int turnsPerSecond = 60;

    void timerCallback() override
    {
        clients.call ([] (Client& client) { client.deliverPending(); });
    }

    juce::ListenerList<Client> clients;
};

} // namespace mk::pluginCore
