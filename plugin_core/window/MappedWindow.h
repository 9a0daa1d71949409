// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** Whether the window and all its parent windows are mapped, according to the system. One file per platform.
    A window inside a host's window gets no event when a parent is hidden. Counts as mapped where the peer
    itself reports hidden windows, or where the system cannot tell. [message thread] */
[[nodiscard]] bool isWindowMapped (const juce::ComponentPeer& peer);

} // namespace mk::pluginCore
