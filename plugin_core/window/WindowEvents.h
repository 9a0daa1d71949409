// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** Receives the system's events after which the results of isApplicationActive(), isWindowMapped() or
    a window's peer may have changed. One file per platform. [message thread] */
class WindowEvents
{
public:
    /** Calls onNews when something may have changed; the owner then calls getNumChanges(). */
    explicit WindowEvents (std::function<void()> onNews);
    ~WindowEvents();

    /** Differs from the previous call if anything may have changed. Cheap: makes no request to the system.
        Nothing if the system sends no events, or no longer does: then anything may change at any time. */
    [[nodiscard]] std::optional<std::uint32_t> getNumChanges() const;

    /** Handles the events of JUCE's windows that have been read from the system but not handled. On Linux a query to
        the X server also reads the events that arrive before its answer, and JUCE handles those only once more
        arrive: without this, a click into a window that paints nothing could wait until the mouse moves. */
    static void handleQueuedEvents();

private:
    class Pimpl;
    std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WindowEvents)
};

} // namespace mk::pluginCore
