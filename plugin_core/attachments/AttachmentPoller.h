// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/window/WindowPoller.h"

#include <juce_events/juce_events.h>

#include <atomic>

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
    writers only set flags. A view that is animated anyway delivers at each of its ticks; without one, values are
    delivered at the steps of the WindowPoller. One for all instances of the plug-in; keep it in a
    juce::SharedResourcePointer. [message thread, except noteValue()] */
class AttachmentPoller final
{
public:
    struct Client
    {
        virtual ~Client() = default;

        /** [message thread] Called if any client has a value. May add and remove clients, including itself. */
        virtual void deliverPending() = 0;
    };

    AttachmentPoller() = default;

    void add (Client& client) { clients.add (&client); }
    void remove (Client& client) { clients.remove (&client); }

    /** Any thread. To be called after a client's value has been stored. Wait-free. */
    void noteValue() noexcept { hasValues.store (true, std::memory_order_release); }

    /** Delivers the values stored so far. Cheap if there are none. */
    void deliverNow()
    {
        // Cleared first, so that a value stored in between is delivered now or the next time.
        if (hasValues.load (std::memory_order_relaxed) && hasValues.exchange (false, std::memory_order_acq_rel))
            clients.call ([] (Client& client) { client.deliverPending(); });
    }

private:
    juce::ListenerList<Client> clients;
    std::atomic<bool> hasValues { false }; // set by any thread, cleared by the message thread
    const WindowPoller::Client pollerClient { [this] { deliverNow(); } };

    static_assert (std::atomic<bool>::is_always_lock_free);

    JUCE_DECLARE_NON_COPYABLE (AttachmentPoller)
};

} // namespace mk::pluginCore
