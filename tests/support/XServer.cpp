// SPDX-License-Identifier: AGPL-3.0-or-later
#include "XServer.h"

#if JUCE_LINUX

    #include <cstring>
    #include <xcb/xcb.h>

namespace mk::orlo::test
{

class XServer::Connection
{
public:
    explicit Connection (const juce::String& displayName) : connection (xcb_connect (displayName.toRawUTF8(), nullptr))
    {
    }

    ~Connection() { xcb_disconnect (connection); }

    [[nodiscard]] bool isUsable() const { return xcb_connection_has_error (connection) == 0; }

    [[nodiscard]] std::uint32_t getRoot() const
    {
        return xcb_setup_roots_iterator (xcb_get_setup (connection)).data->root;
    }

    [[nodiscard]] std::uint32_t createWindow (std::uint32_t parent)
    {
        const auto window = xcb_generate_id (connection);
        xcb_create_window (connection,
                           XCB_COPY_FROM_PARENT,
                           window,
                           parent,
                           0,
                           0,
                           10,
                           10,
                           0,
                           XCB_WINDOW_CLASS_INPUT_OUTPUT,
                           XCB_COPY_FROM_PARENT,
                           0,
                           nullptr);
        return window;
    }

    void destroyWindow (std::uint32_t window)
    {
        xcb_destroy_window (connection, window);
        sync();
    }

    void setMapped (std::uint32_t window, bool shouldBeMapped)
    {
        if (shouldBeMapped)
            xcb_map_window (connection, window);
        else
            xcb_unmap_window (connection, window);

        sync();
    }

    void setProperty (std::uint32_t window, const char* name, xcb_atom_t type, std::uint32_t value)
    {
        xcb_change_property (connection, XCB_PROP_MODE_REPLACE, window, findAtom (name), type, 32, 1, &value);
        sync();
    }

private:
    [[nodiscard]] xcb_atom_t findAtom (const char* name)
    {
        const auto request = xcb_intern_atom (connection, 0, std::uint16_t (std::strlen (name)), name);
        auto* const reply = xcb_intern_atom_reply (connection, request, nullptr);
        const auto atom = reply->atom;
        std::free (reply);
        return atom;
    }

    /** Returns when the server has done everything asked for so far. */
    void sync() { std::free (xcb_get_input_focus_reply (connection, xcb_get_input_focus (connection), nullptr)); }

    xcb_connection_t* const connection;
};

XServer::XServer()
{
    // The server chooses a free display itself and writes its number when it is ready.
    if (! process.start ({ "Xvfb", "-displayfd", "1", "-screen", "0", "320x200x24", "-nolisten", "tcp", "-terminate" },
                         juce::ChildProcess::wantStdOut))
        return;

    char digit = 0;

    while (process.readProcessOutput (&digit, 1) == 1 && digit != '\n')
        displayName += digit;

    if (displayName.isEmpty())
        return;

    displayName = ":" + displayName;
    connection = std::make_unique<Connection> (displayName);

    if (! connection->isUsable())
        connection.reset();
}

XServer::~XServer()
{
    // The server ends by itself after its last client, and removes its lock file.
    connection.reset();

    if (! process.waitForProcessToFinish (5000))
        process.kill();
}

std::uint32_t XServer::createWindow (std::uint32_t processId, std::uint32_t parent)
{
    const auto window = connection->createWindow (parent != 0 ? parent : connection->getRoot());
    connection->setProperty (window, "_NET_WM_PID", XCB_ATOM_CARDINAL, processId);
    return window;
}

void XServer::destroyWindow (std::uint32_t window) { connection->destroyWindow (window); }

void XServer::setMapped (std::uint32_t window, bool shouldBeMapped) { connection->setMapped (window, shouldBeMapped); }

void XServer::setActiveWindow (std::uint32_t window)
{
    connection->setProperty (connection->getRoot(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, window);
}

void XServer::stop()
{
    process.kill();
    process.waitForProcessToFinish (5000);
    connection.reset();
}

} // namespace mk::orlo::test

#endif
