// SPDX-License-Identifier: AGPL-3.0-or-later
#include "X11ActiveWindow.h"

#include "XcbLibrary.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <vector>

#include <unistd.h>

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

/** The X id in a native handle from a component's peer. */
[[nodiscard]] xcb_window_t toId (void* window) noexcept
{
    return xcb_window_t (reinterpret_cast<std::uintptr_t> (window));
}

// No real window is nested this deeply, so a longer chain comes from a faulty server.
constexpr int maxDepth = 100;

/** The bit of an event's type that marks it as sent by another client. */
constexpr std::uint8_t sentByClient = 0x80;
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

        if (! isUsable())
            return;

        root = xcb.getRoots (xcb.getSetup (connection.get())).data->root;
        activeWindowAtom = findAtom ("_NET_ACTIVE_WINDOW");
        processIdAtom = findAtom ("_NET_WM_PID");
        stateAtom = findAtom ("_NET_WM_STATE");
        selectEvents (root, XCB_EVENT_MASK_PROPERTY_CHANGE);
    }

    [[nodiscard]] bool isUsable() const { return connection != nullptr && xcb.hasError (connection.get()) == 0; }

    [[nodiscard]] bool belongsTo (xcb_window_t window)
    {
        return answer (activeAnswers, window, [this, window] { return askWhetherActive (window); });
    }

    [[nodiscard]] bool isViewable (xcb_window_t window)
    {
        return answer (viewableAnswers, window, [this, window] { return askWhetherViewable (window); });
    }

    [[nodiscard]] std::uint32_t getNumChanges()
    {
        if (! isUsable())
            return numChanges;

        while (const auto event = ReplyPtr<xcb_generic_event_t> (xcb.pollForEvent (connection.get())))
        {
            if (changesAnswers (*event))
                forgetAnswers();
            else if (getType (*event) == XCB_CONFIGURE_NOTIFY)
                ++numChanges;
        }

        // Without a server the cached answers are no longer valid.
        if (! isUsable())
            forgetAnswers();

        return numChanges;
    }

    [[nodiscard]] int getDescriptor() const { return isUsable() ? xcb.getDescriptor (connection.get()) : -1; }
    [[nodiscard]] int getNumRoundTrips() const noexcept { return numRoundTrips; }

private:
    using Answers = std::map<xcb_window_t, bool>;

    /** The cached answer, or else the server's. True without a server, or if the connection breaks meanwhile. */
    template <typename Ask>
    [[nodiscard]] bool answer (Answers& known, xcb_window_t window, Ask&& ask)
    {
        static_cast<void> (getNumChanges());

        if (! isUsable())
            return true;

        if (const auto found = known.find (window); found != known.end())
            return found->second;

        const auto asked = ask();

        if (! isUsable())
            return true;

        known[window] = asked;
        return asked;
    }

    [[nodiscard]] bool askWhetherActive (xcb_window_t window)
    {
        // Subscribe before the queries, so that every change after them sends an event.
        const auto chain = watchWithParents (window);
        const auto active = readNumber (root, activeWindowAtom, XCB_ATOM_WINDOW);

        if (! active.has_value())
            return true;

        if (*active == XCB_NONE)
            return false;

        selectEvents (*active, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);

        if (readNumber (*active, processIdAtom, XCB_ATOM_CARDINAL) == std::uint32_t (getpid()))
            return true;

        return std::find (chain.begin(), chain.end(), *active) != chain.end();
    }

    [[nodiscard]] bool askWhetherViewable (xcb_window_t window)
    {
        watchWithParents (window);
        ++numRoundTrips;
        const auto request = xcb.getAttributes (connection.get(), window);
        const ReplyPtr<xcb_get_window_attributes_reply_t> reply (
            xcb.getAttributesReply (connection.get(), request, nullptr));
        return reply == nullptr || reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    /** Subscribes to events of the window and all its parents. Returns them, innermost first. */
    std::vector<xcb_window_t> watchWithParents (xcb_window_t window)
    {
        std::vector<xcb_window_t> chain;

        while (window != XCB_NONE && window != root && int (chain.size()) < maxDepth)
        {
            chain.push_back (window);
            selectEvents (window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
            window = findParent (window);
        }

        return chain;
    }

    void selectEvents (xcb_window_t window, std::uint32_t mask)
    {
        xcb.changeAttributes (connection.get(), window, XCB_CW_EVENT_MASK, &mask);
        xcb.flush (connection.get());
    }

    [[nodiscard]] static int getType (const xcb_generic_event_t& event) noexcept
    {
        return event.response_type & ~sentByClient;
    }

    /** Whether the event can change a cached answer. A move cannot, and a drag sends many of them. Nor can an
        error, which the server sends for windows that were destroyed before the query. */
    [[nodiscard]] bool changesAnswers (const xcb_generic_event_t& event) const
    {
        switch (getType (event))
        {
            case XCB_DESTROY_NOTIFY:
            case XCB_UNMAP_NOTIFY:
            case XCB_MAP_NOTIFY:
            case XCB_REPARENT_NOTIFY: return true;

            case XCB_PROPERTY_NOTIFY:
            {
                const auto atom = reinterpret_cast<const xcb_property_notify_event_t&> (event).atom;
                return atom == activeWindowAtom || atom == processIdAtom || atom == stateAtom;
            }

            default: return false;
        }
    }

    void forgetAnswers()
    {
        ++numChanges;
        activeAnswers.clear();
        viewableAnswers.clear();
    }

    [[nodiscard]] xcb_atom_t findAtom (const char* name)
    {
        ++numRoundTrips;
        const auto request = xcb.internAtom (connection.get(), 0, std::uint16_t (std::strlen (name)), name);
        const ReplyPtr<xcb_intern_atom_reply_t> reply (xcb.internAtomReply (connection.get(), request, nullptr));
        return reply != nullptr ? reply->atom : xcb_atom_t (XCB_ATOM_NONE);
    }

    /** Nothing if the window or the property does not exist. */
    [[nodiscard]] std::optional<std::uint32_t> readNumber (xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
    {
        ++numRoundTrips;
        const auto request = xcb.getProperty (connection.get(), 0, window, property, type, 0, 1);
        const ReplyPtr<xcb_get_property_reply_t> reply (xcb.getPropertyReply (connection.get(), request, nullptr));
        std::uint32_t number = 0;

        if (reply == nullptr || xcb.getLength (reply.get()) != int (sizeof (number)))
            return std::nullopt;

        std::memcpy (&number, xcb.getValue (reply.get()), sizeof (number));
        return number;
    }

    [[nodiscard]] xcb_window_t findParent (xcb_window_t window)
    {
        ++numRoundTrips;
        const auto request = xcb.queryTree (connection.get(), window);
        const ReplyPtr<xcb_query_tree_reply_t> reply (xcb.queryTreeReply (connection.get(), request, nullptr));
        return reply != nullptr ? reply->parent : xcb_window_t (XCB_NONE);
    }

    struct Disconnect
    {
        void operator() (xcb_connection_t* toClose) const { disconnect (toClose); }

        decltype (&xcb_disconnect) disconnect;
    };

    XcbLibrary xcb;
    std::unique_ptr<xcb_connection_t, Disconnect> connection { nullptr, Disconnect { xcb.disconnect } };
    xcb_window_t root = XCB_NONE;
    xcb_atom_t activeWindowAtom = XCB_ATOM_NONE, processIdAtom = XCB_ATOM_NONE, stateAtom = XCB_ATOM_NONE;

    // Cached by window, until the next event that can change an answer.
    Answers activeAnswers, viewableAnswers;
    std::uint32_t numChanges = 0;
    int numRoundTrips = 0;
};

//==============================================================================
X11ActiveWindow::X11ActiveWindow (const juce::String& displayName)
    : connection (std::make_unique<Connection> (displayName))
{
}

X11ActiveWindow::X11ActiveWindow() : X11ActiveWindow (juce::String()) {}

X11ActiveWindow::~X11ActiveWindow() = default;

bool X11ActiveWindow::isViewable (void* window) const
{
    return window == nullptr || connection->isViewable (toId (window));
}

bool X11ActiveWindow::belongsTo (void* window) const { return connection->belongsTo (toId (window)); }

std::uint32_t X11ActiveWindow::getNumChanges() const { return connection->getNumChanges(); }

int X11ActiveWindow::getDescriptor() const { return connection->getDescriptor(); }

int X11ActiveWindow::getNumRoundTrips() const noexcept { return connection->getNumRoundTrips(); }

} // namespace mk::pluginCore
