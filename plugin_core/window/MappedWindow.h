// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** The system's answer, one file per platform: whether the window is on the screen together with all windows
    that it lies in, which a window inside a host's does not hear of by itself. Where the peer knows that, or
    nobody can tell, it counts as mapped. [message thread] */
[[nodiscard]] bool isWindowMapped (const juce::ComponentPeer& peer);

} // namespace mk::pluginCore
