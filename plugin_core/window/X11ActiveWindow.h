// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <memory>

namespace mk::pluginCore
{

/** Asks an X server which window its window manager calls the active one, and which windows are hidden with
    the windows around them. An answer holds until the server sends an event that could change it, so asking
    again costs no round trip to the server.

    Has a connection of its own, and one that reports errors to the caller: through Xlib, a window that closes
    at the wrong moment would end the host's process. Linux only; one thread at a time.

    Those who ask for the process share one object with a juce::SharedResourcePointer. It must be gone before
    the host gives the plug-in back: closing a library in a static destructor may unmap the plug-in while its
    own code runs. */
class X11ActiveWindow
{
public:
    /** Connects to the given display, or to the one that the environment names. */
    explicit X11ActiveWindow (const juce::String& displayName);
    X11ActiveWindow();
    ~X11ActiveWindow();

    /** Whether the active window is this process's or holds the given window, which is the case for a
        plug-in that runs in a process apart from its host. The window is an X window's id, or null for none.
        True too if there is no X server, or no window manager that tells. */
    [[nodiscard]] bool belongsTo (void* window) const;

    /** Whether the window and all those around it are mapped: a window manager takes a minimised window off
        the screen, and a plug-in's window with it, which does not hear of that. True too if the server cannot
        tell. */
    [[nodiscard]] bool isViewable (void* window) const;

    /** Reads the events that have arrived, without waiting. Gives a number that is another than before if
        anything may have changed for a window that was asked about: an answer from here, its place on the
        screen, or whether it is minimised. */
    [[nodiscard]] std::uint32_t getNumChanges() const;

    /** The socket that has something to read when getNumChanges() may have news. Negative without a server. */
    [[nodiscard]] int getDescriptor() const;

    /** How often the server was asked and waited for so far. */
    [[nodiscard]] int getNumRoundTrips() const noexcept;

private:
    class Connection;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (X11ActiveWindow)
};

} // namespace mk::pluginCore
