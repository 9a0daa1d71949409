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

private:
    class Pimpl;
    std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WindowEvents)
};

} // namespace mk::pluginCore
