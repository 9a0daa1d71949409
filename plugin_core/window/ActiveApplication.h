// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** Whether the application that shows the component is the active one, according to the system. One file per
    platform. If the system cannot tell, the application counts as active. [message thread] */
[[nodiscard]] bool isApplicationActive (const juce::Component& component);

} // namespace mk::pluginCore
