// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <memory>

namespace mk::pluginCore
{

/** Queries an X server for the active window, as the window manager sets it, and for whether a window is
    hidden by itself or with a parent. Answers are cached until the server sends an event that could change
    them, so a repeated query costs no round trip to the server.

    Uses its own XCB connection, which returns errors to the caller: with Xlib, an error for a window that was
    just destroyed would end the host's process. Linux only; one thread at a time.

    All users in a process share one object through a juce::SharedResourcePointer. It must be destroyed before
    the host unloads the plug-in: closing a library in a static destructor may unmap the plug-in while its
    own code runs. */
class X11ActiveWindow
{
public:
    /** Connects to the given display, or for an empty name to the one that the environment sets. */
    explicit X11ActiveWindow (const juce::String& displayName);
    X11ActiveWindow();
    ~X11ActiveWindow();

    /** Whether the active window belongs to this process, or contains the given window, as it does when a
        plug-in runs in another process than its host. The window is an X window's id, or null for none.
        Also true if there is no X server, or no window manager that sets the active window. */
    [[nodiscard]] bool belongsTo (void* window) const;

    /** Whether the window and all its parents are mapped: a window manager unmaps a minimised window, and the
        plug-in's window inside it disappears without an event of its own. Also true if the server cannot
        tell. */
    [[nodiscard]] bool isViewable (void* window) const;

    /** Reads the events that have arrived, without waiting. The number differs from the previous call if
        anything may have changed for a window that was queried: an answer of this class, its position on the
        screen, or whether it is minimised. */
    [[nodiscard]] std::uint32_t getNumChanges() const;

    /** The socket that becomes readable when getNumChanges() may differ. Negative without a server. */
    [[nodiscard]] int getDescriptor() const;

    /** The number of round trips to the server so far. */
    [[nodiscard]] int getNumRoundTrips() const noexcept;

private:
    class Connection;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (X11ActiveWindow)
};

} // namespace mk::pluginCore
