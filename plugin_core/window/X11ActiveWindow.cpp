// SPDX-License-Identifier: AGPL-3.0-or-later
#include "X11ActiveWindow.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <unistd.h>
#include <xcb/xcb.h>

namespace mk::pluginCore
{
namespace
{
struct FreeReply
{
    void operator() (void* reply) const noexcept { std::free (reply); }
};

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeReply>;

/** A window as a component's peer gives it. */
[[nodiscard]] xcb_window_t toId (void* window) noexcept
{
    return xcb_window_t (reinterpret_cast<std::uintptr_t> (window));
}

/** The functions of libxcb, which is loaded and not linked: a host without a display may lack it. */
class Xcb
{
    juce::DynamicLibrary library { "libxcb.so.1" };

    template <typename Function>
    [[nodiscard]] Function find (const char* name)
    {
        const auto function = reinterpret_cast<Function> (library.getFunction (name));
        complete = complete && function != nullptr;
        return function;
    }

    bool complete = true;

public:
    decltype (&xcb_connect) connect = find<decltype (connect)> ("xcb_connect");
    decltype (&xcb_connection_has_error) hasError = find<decltype (hasError)> ("xcb_connection_has_error");
    decltype (&xcb_disconnect) disconnect = find<decltype (disconnect)> ("xcb_disconnect");
    decltype (&xcb_get_setup) getSetup = find<decltype (getSetup)> ("xcb_get_setup");
    decltype (&xcb_setup_roots_iterator) getRoots = find<decltype (getRoots)> ("xcb_setup_roots_iterator");
    decltype (&xcb_intern_atom) internAtom = find<decltype (internAtom)> ("xcb_intern_atom");
    decltype (&xcb_intern_atom_reply) internAtomReply = find<decltype (internAtomReply)> ("xcb_intern_atom_reply");
    decltype (&xcb_get_property) getProperty = find<decltype (getProperty)> ("xcb_get_property");
    decltype (&xcb_get_property_reply) getPropertyReply = find<decltype (getPropertyReply)> ("xcb_get_property_reply");
    decltype (&xcb_get_property_value) getValue = find<decltype (getValue)> ("xcb_get_property_value");
    decltype (&xcb_get_property_value_length) getLength = find<decltype (getLength)> ("xcb_get_property_value_length");
    decltype (&xcb_query_tree) queryTree = find<decltype (queryTree)> ("xcb_query_tree");
    decltype (&xcb_query_tree_reply) queryTreeReply = find<decltype (queryTreeReply)> ("xcb_query_tree_reply");

    decltype (&xcb_get_window_attributes) getAttributes = find<decltype (getAttributes)> ("xcb_get_window_attributes");
    decltype (&xcb_get_window_attributes_reply) getAttributesReply =
        find<decltype (getAttributesReply)> ("xcb_get_window_attributes_reply");

    [[nodiscard]] bool isComplete() const noexcept { return complete; }
};
} // namespace

//==============================================================================
class X11ActiveWindow::Connection
{
public:
    explicit Connection (const juce::String& displayName)
    {
        if (! xcb.isComplete())
            return;

        connection.reset (xcb.connect (displayName.isEmpty() ? nullptr : displayName.toRawUTF8(), nullptr));

        if (xcb.hasError (connection.get()) != 0)
            return;

        root = xcb.getRoots (xcb.getSetup (connection.get())).data->root;
        activeWindowAtom = findAtom ("_NET_ACTIVE_WINDOW");
        processIdAtom = findAtom ("_NET_WM_PID");
    }

    /** Nothing if the server is gone or no window manager tells; 0 if no window is the active one. */
    [[nodiscard]] std::optional<std::uint32_t> getActiveWindow() const
    {
        return isUsable() ? readNumber (root, activeWindowAtom, XCB_ATOM_WINDOW) : std::nullopt;
    }

    [[nodiscard]] std::optional<std::uint32_t> getProcessId (xcb_window_t window) const
    {
        return readNumber (window, processIdAtom, XCB_ATOM_CARDINAL);
    }

    [[nodiscard]] bool isInside (xcb_window_t window, xcb_window_t outer) const
    {
        // No window is nested that deeply; a server that says so is not to be believed.
        constexpr int maxDepth = 100;

        for (int depth = 0; depth < maxDepth && window != XCB_NONE; ++depth)
        {
            if (window == outer)
                return true;

            window = findParent (window);
        }

        return false;
    }

    [[nodiscard]] bool isViewable (xcb_window_t window) const
    {
        if (! isUsable())
            return true;

        const auto request = xcb.getAttributes (connection.get(), window);
        const ReplyPtr<xcb_get_window_attributes_reply_t> reply (
            xcb.getAttributesReply (connection.get(), request, nullptr));
        return reply == nullptr || reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

private:
    [[nodiscard]] bool isUsable() const { return connection != nullptr && xcb.hasError (connection.get()) == 0; }

    [[nodiscard]] xcb_atom_t findAtom (const char* name) const
    {
        const auto request = xcb.internAtom (connection.get(), 0, std::uint16_t (std::strlen (name)), name);
        const ReplyPtr<xcb_intern_atom_reply_t> reply (xcb.internAtomReply (connection.get(), request, nullptr));
        return reply != nullptr ? reply->atom : xcb_atom_t (XCB_ATOM_NONE);
    }

    [[nodiscard]] std::optional<std::uint32_t>
        readNumber (xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const
    {
        const auto request = xcb.getProperty (connection.get(), 0, window, property, type, 0, 1);
        const ReplyPtr<xcb_get_property_reply_t> reply (xcb.getPropertyReply (connection.get(), request, nullptr));
        std::uint32_t number = 0;

        if (reply == nullptr || xcb.getLength (reply.get()) != int (sizeof (number)))
            return std::nullopt;

        std::memcpy (&number, xcb.getValue (reply.get()), sizeof (number));
        return number;
    }

    [[nodiscard]] xcb_window_t findParent (xcb_window_t window) const
    {
        const auto request = xcb.queryTree (connection.get(), window);
        const ReplyPtr<xcb_query_tree_reply_t> reply (xcb.queryTreeReply (connection.get(), request, nullptr));
        return reply != nullptr ? reply->parent : xcb_window_t (XCB_NONE);
    }

    struct Disconnect
    {
        void operator() (xcb_connection_t* toClose) const { disconnect (toClose); }

        decltype (&xcb_disconnect) disconnect;
    };

    Xcb xcb;
    std::unique_ptr<xcb_connection_t, Disconnect> connection { nullptr, Disconnect { xcb.disconnect } };
    xcb_window_t root = XCB_NONE;
    xcb_atom_t activeWindowAtom = XCB_ATOM_NONE, processIdAtom = XCB_ATOM_NONE;
};

//==============================================================================
X11ActiveWindow::X11ActiveWindow (const juce::String& displayName)
    : connection (std::make_unique<Connection> (displayName))
{
}

X11ActiveWindow::~X11ActiveWindow() = default;

const X11ActiveWindow& X11ActiveWindow::getShared()
{
    static const X11ActiveWindow shared;
    return shared;
}

bool X11ActiveWindow::isViewable (void* window) const
{
    return window == nullptr || connection->isViewable (toId (window));
}

bool X11ActiveWindow::belongsTo (void* window) const
{
    const auto active = connection->getActiveWindow();

    if (! active.has_value())
        return true;

    if (*active == XCB_NONE)
        return false;

    return connection->getProcessId (*active) == std::uint32_t (getpid())
           || connection->isInside (toId (window), *active);
}

} // namespace mk::pluginCore
