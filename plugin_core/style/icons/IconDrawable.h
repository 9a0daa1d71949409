// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Icon.h"

#include <optional>

namespace mk::pluginCore
{

/** An icon as the image of a juce::DrawableButton or of a menu entry. It is fitted to the pixels at each
    paint, so that it is sharp at every size and display scale. [message thread] */
class IconDrawable final : public juce::Drawable
{
public:
    IconDrawable (Icon icon, juce::Colour colour);

    [[nodiscard]] Icon getIcon() const noexcept { return icon; }
    [[nodiscard]] juce::Colour getColour() const noexcept { return colour; }

    std::unique_ptr<juce::Drawable> createCopy() const override;
    juce::Rectangle<float> getDrawableBounds() const override;
    juce::Path getOutlineAsPath() const override;
    bool replaceColour (juce::Colour originalColour, juce::Colour replacementColour) override;
    void paint (juce::Graphics& g) override;

private:
    const Icon icon;
    juce::Colour colour;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (IconDrawable)
};

/** Gives the button its icon in the palette's text colour; a second icon is shown while the button is
    toggled on. The button's style should be ImageFitted, its edge indent the margin around the icon.
    Also stops clicks from giving the button the keyboard focus and its frame: only keys do so then. */
void setIcon (juce::DrawableButton& button, Icon icon, std::optional<Icon> iconWhenOn = std::nullopt);

/** The same for a switch: its icon has the palette's accent colour while it is on. */
void setSwitchIcon (juce::DrawableButton& button, Icon icon);

} // namespace mk::pluginCore
