// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** The system's answer, one file per platform: whether the application that shows the component is the one
    the user works with. Where the system cannot tell, it counts as active. [message thread] */
[[nodiscard]] bool isApplicationActive (const juce::Component& component);

} // namespace mk::pluginCore
