// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <xcb/xcb.h>

namespace mk::pluginCore
{

/** The functions of libxcb. It is loaded at run time and not linked, since a system without a display may lack it. */
class XcbLibrary
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
    decltype (&xcb_flush) flush = find<decltype (flush)> ("xcb_flush");
    decltype (&xcb_get_file_descriptor) getDescriptor = find<decltype (getDescriptor)> ("xcb_get_file_descriptor");
    decltype (&xcb_poll_for_event) pollForEvent = find<decltype (pollForEvent)> ("xcb_poll_for_event");
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

    decltype (&xcb_change_window_attributes) changeAttributes =
        find<decltype (changeAttributes)> ("xcb_change_window_attributes");

    decltype (&xcb_get_window_attributes) getAttributes = find<decltype (getAttributes)> ("xcb_get_window_attributes");
    decltype (&xcb_get_window_attributes_reply) getAttributesReply =
        find<decltype (getAttributesReply)> ("xcb_get_window_attributes_reply");

    [[nodiscard]] bool isComplete() const noexcept { return complete; }
};

} // namespace mk::pluginCore
