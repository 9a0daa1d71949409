// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo::test
{

/** The colour of the icon that a button shows at the moment. The button must have been given one by setIcon() or
    setSwitchIcon(). */
[[nodiscard]] inline juce::Colour getIconColour (juce::Button& button)
{
    auto* const image = dynamic_cast<juce::DrawableButton&> (button).getCurrentImage();
    return dynamic_cast<pluginCore::IconDrawable&> (*image).getColour();
}

} // namespace mk::orlo::test
