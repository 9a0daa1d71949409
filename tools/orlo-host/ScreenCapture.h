// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::host
{

/** [message thread] The pixels of a component as the screen shows them, whichever program or library drew
    them. Throws HostError if the component is not wholly on the screen, or where the system is not X11. */
[[nodiscard]] juce::Image captureFromScreen (const juce::Component& component);

/** Writes a picture as PNG. Throws HostError if the file cannot be written; then it is as it was. */
void writePng (const juce::Image& image, const juce::File& file);

} // namespace mk::orlo::host
