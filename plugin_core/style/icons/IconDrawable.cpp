// SPDX-License-Identifier: AGPL-3.0-or-later
#include "IconDrawable.h"

#include "plugin_core/style/Palette.h"

#include <cmath>

namespace mk::pluginCore
{
namespace
{
void setImages (juce::DrawableButton& button, const IconDrawable& off, const IconDrawable& on)
{
    button.setMouseClickGrabsKeyboardFocus (false);
    button.setImages (&off, nullptr, nullptr, nullptr, &on);
}
} // namespace

IconDrawable::IconDrawable (Icon iconToDraw, juce::Colour colourToUse) : icon (iconToDraw), colour (colourToUse)
{
    setBoundsToEnclose (getDrawableBounds());
}

std::unique_ptr<juce::Drawable> IconDrawable::createCopy() const
{
    return std::make_unique<IconDrawable> (icon, colour);
}

juce::Rectangle<float> IconDrawable::getDrawableBounds() const { return { iconGridSize, iconGridSize }; }

juce::Path IconDrawable::getOutlineAsPath() const { return makeIconPath (icon, iconGridSize); }

bool IconDrawable::replaceColour (juce::Colour originalColour, juce::Colour replacementColour)
{
    if (colour != originalColour)
        return false;

    colour = replacementColour;
    repaint();
    return true;
}

void IconDrawable::paint (juce::Graphics& g)
{
    // The icon is fitted to pixels relative to its corner, so the corner must lie on a whole pixel.
    const auto* top = getTopLevelComponent();
    const auto origin = top->getLocalPoint (this, juce::Point<float>());
    const auto unit = origin.getDistanceFrom (top->getLocalPoint (this, juce::Point<float> (1.0f, 0.0f)));
    const auto scale = g.getInternalContext().getPhysicalPixelScaleFactor();

    if (unit <= 0.0f || scale <= 0.0f)
        return;

    const auto pixel = origin * (scale / unit);
    const auto nudge = juce::Point<float> (std::round (pixel.x) - pixel.x, std::round (pixel.y) - pixel.y) / scale;

    const juce::Graphics::ScopedSaveState state (g);
    g.addTransform (juce::AffineTransform::translation (nudge));
    drawIcon (g, icon, getDrawableBounds(), colour);
}

void setIcon (juce::DrawableButton& button, Icon icon, std::optional<Icon> iconWhenOn)
{
    const juce::Colour colour (palette::text);
    setImages (button, IconDrawable (icon, colour), IconDrawable (iconWhenOn.value_or (icon), colour));
}

void setSwitchIcon (juce::DrawableButton& button, Icon icon)
{
    setImages (
        button, IconDrawable (icon, juce::Colour (palette::text)), IconDrawable (icon, juce::Colour (palette::accent)));
}

} // namespace mk::pluginCore
