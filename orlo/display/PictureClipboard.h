// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Pictures on the system's clipboard. [message thread] */
namespace mk::orlo::pictureClipboard
{

/** Whether the system takes a copy of the picture. With X11 the program that copies has to serve the picture from its
    own window for as long as others may want it, which a plug-in in the host's process cannot do. */
[[nodiscard]] bool isAvailable() noexcept;

/** Replaces what is on the clipboard. Returns false if that fails or is not available. */
[[nodiscard]] bool copy (const juce::Image& picture);

} // namespace mk::orlo::pictureClipboard
