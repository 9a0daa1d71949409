// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_events/juce_events.h>

namespace mk::pluginCore
{

/** Delivers, on the message thread, what other threads have left for it.

    Posting a message takes a lock and a system call, and may allocate, which no audio thread can afford. So a
    writer only sets a flag, and this looks at the flags, at the pace of a display, as long as there are clients.
    One for all instances of the plug-in; keep it in a juce::SharedResourcePointer. [message thread] */
class AttachmentPoller final : private juce::Timer
{
public:
    struct Client
    {
        virtual ~Client() = default;

        /** [message thread] Called at every turn. May add and remove clients, itself too. */
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

    /** What the next turn would do. */
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
