// SPDX-License-Identifier: AGPL-3.0-or-later
#include "VirtualDisplay.h"

#include "tests/support/WindowAtoms.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace mk::orlo::test
{

/** The window manager's connection to the display. */
class VirtualDisplay::Connection
{
public:
    explicit Connection (const juce::String& displayName) : display (XOpenDisplay (displayName.toRawUTF8()))
    {
        for (const auto* const atom : windowAtoms)
            static_cast<void> (getAtom (atom));

        // A window may close while it is being asked for its title.
        XSetErrorHandler ([] (::Display*, ::XErrorEvent*) { return 0; });
        // Moves the pointer away: the editor shows buttons and a readout under it.
        const auto screen = DefaultScreen (display);
        XWarpPointer (display,
                      None,
                      DefaultRootWindow (display),
                      0,
                      0,
                      0,
                      0,
                      DisplayWidth (display, screen) - 1,
                      DisplayHeight (display, screen) - 1);
        XSync (display, False);
    }

    ~Connection() { XCloseDisplay (display); }

    [[nodiscard]] ::Window findWindow (const juce::String& title) const
    {
        ::Window root = 0, parent = 0, found = 0;
        ::Window* children = nullptr;
        unsigned count = 0;

        if (XQueryTree (display, DefaultRootWindow (display), &root, &parent, &children, &count) == 0)
            return 0;

        for (unsigned i = 0; i < count; ++i)
            if (getTitle (children[i]) == title)
                found = children[i];

        XFree (children);
        return found;
    }

    void sendClose (::Window window)
    {
        ::XEvent event {};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = getAtom ("WM_PROTOCOLS");
        event.xclient.format = 32;
        event.xclient.data.l[0] = long (getAtom ("WM_DELETE_WINDOW"));
        XSendEvent (display, window, False, NoEventMask, &event);
        XSync (display, False);
    }

    void move (::Window window, juce::Point<int> position)
    {
        XMoveWindow (display, window, position.x, position.y);
        XSync (display, False);
    }

private:
    [[nodiscard]] ::Atom getAtom (const char* atomName) const { return XInternAtom (display, atomName, False); }

    [[nodiscard]] juce::String getTitle (::Window window) const
    {
        ::XTextProperty text {};

        if (XGetWMName (display, window, &text) == 0)
            return {};

        const auto title = juce::String::fromUTF8 (reinterpret_cast<const char*> (text.value), int (text.nitems));
        XFree (text.value);
        return title;
    }

    ::Display* const display;

    JUCE_DECLARE_NON_COPYABLE (Connection)
};

//==============================================================================
VirtualDisplay::VirtualDisplay()
{
    // The server picks a free number by itself and writes it when it is ready.
    if (! server.start ({ "Xvfb", "-displayfd", "1", "-screen", "0", "1600x1000x24", "-nolisten", "tcp" },
                        juce::ChildProcess::wantStdOut))
        return;

    juce::String number;
    char digit = 0;

    while (server.readProcessOutput (&digit, 1) == 1 && digit != '\n')
        number += juce::String::charToString (juce::juce_wchar (digit));

    if (number.isNotEmpty())
    {
        name = ":" + number;
        connection = std::make_unique<Connection> (name);
    }
}

VirtualDisplay::~VirtualDisplay()
{
    connection = nullptr;
    server.kill();
}

bool VirtualDisplay::closeWindow (const juce::String& title)
{
    const auto window = connection->findWindow (title);

    if (window == 0)
        return false;

    connection->sendClose (window);
    return true;
}

void VirtualDisplay::moveWindow (const juce::String& title, juce::Point<int> position)
{
    if (const auto window = connection->findWindow (title); window != 0)
        connection->move (window, position);
}

} // namespace mk::orlo::test
