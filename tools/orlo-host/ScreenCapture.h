// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::host
{

/** [message thread] The pixels of a component as the screen shows them, whichever program or library drew
    them. Throws HostError if part of the component is off the screen, or if the system is not X11. */
[[nodiscard]] juce::Image captureFromScreen (const juce::Component& component);

/** Writes a picture as PNG. If that fails, throws HostError and leaves the file unchanged. */
void writePng (const juce::Image& image, const juce::File& file);

} // namespace mk::orlo::host
