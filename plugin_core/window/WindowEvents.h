// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** Hears from the system that something about a window may have changed which isApplicationActive(),
    isWindowMapped() or a window's peer tells. One file per platform. [message thread] */
class WindowEvents
{
public:
    /** Calls back when there may be news; the caller then asks getNumChanges(). */
    explicit WindowEvents (std::function<void()> onNews);
    ~WindowEvents();

    /** Another number than before if anything may have changed. Asks nobody, so it costs little. Nothing where
        the system does not tell, or no longer does: then anything may have changed at any time. */
    [[nodiscard]] std::optional<std::uint32_t> getNumChanges() const;

private:
    class Pimpl;
    std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WindowEvents)
};

} // namespace mk::pluginCore
