// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/MouseFade.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::pluginCore
{
namespace
{
// The size of a path button's path, as a share of the button's smaller side.
constexpr float pathShare = 0.66f;

// The parts of a dialog, as proportions of its width and height.
constexpr float margin = 0.02f;
constexpr float questionHeight = 0.75f;
constexpr float buttonRowHeight = 0.25f;
constexpr float buttonWidth = 0.33333334f;
constexpr float buttonGap = 0.067f;
constexpr float middle = 0.5f;

[[nodiscard]] float angleOf (const FilledPathButton& button)
{
    const auto* animator = dynamic_cast<const GenericComponentAnimator*> (&button);
    const bool turns = button.getProperties()[styleProperty::rotate];

    if (animator == nullptr || ! turns)
        return 0.0f;

    const bool onMouseDown = button.getProperties()[styleProperty::animateOnMouseDown];
    return mouseFade::turnAngle (animator->getMouseAnimationTimes(), onMouseDown);
}
} // namespace

void LookAndFeel::drawFilledPathButton (juce::Graphics& g,
                                        FilledPathButton& button,
                                        const juce::Path& path,
                                        bool isOver,
                                        bool isDown)
{
    const auto bounds = button.getLocalBounds().toFloat();
    const auto radius = std::min (scaleRule::cornerRadius (button) * 0.5f, bounds.getHeight() * 0.5f);
    const auto pick = [&button, isOver, isDown] (int normal, int over, int down)
    { return button.findColour (isDown ? down : (isOver ? over : normal)); };

    g.setColour (
        pick (colourId::pathButtonBackground, colourId::pathButtonBackgroundOver, colourId::pathButtonBackgroundDown));
    g.fillRoundedRectangle (bounds, radius);

    if (button.hasKeyboardFocus (false))
    {
        g.setColour (button.findColour (colourId::pathButtonFocusOutline));
        g.drawRoundedRectangle (bounds.reduced (1.0f), radius, 2.0f);
    }

    const auto side = std::min (bounds.getWidth(), bounds.getHeight()) * pathShare;
    const auto area = bounds.withSizeKeepingCentre (side, side);

    if (area.isEmpty() || path.isEmpty())
        return;

    const auto turned =
        path.getTransformToScaleToFit (area, true).rotated (angleOf (button), area.getCentreX(), area.getCentreY());
    const auto colour = pick (colourId::pathButtonPath, colourId::pathButtonPathOver, colourId::pathButtonPathDown);
    g.setColour (colour.withMultipliedAlpha (button.isEnabled() ? 1.0f : 0.5f));
    g.fillPath (path, turned);
}

void LookAndFeel::layOutConfirmDialog (juce::Rectangle<int> dialog,
                                       juce::Component& question,
                                       juce::Component& confirm,
                                       juce::Component& cancel)
{
    const auto width = float (dialog.getWidth());
    const auto inner = dialog.reduced (juce::roundToInt (width * margin));
    question.setBounds (inner.withHeight (juce::roundToInt (float (inner.getHeight()) * questionHeight)));

    const auto rowHeight = juce::roundToInt (float (inner.getHeight()) * buttonRowHeight);
    const auto oneWidth = juce::roundToInt (width * buttonWidth);
    const auto gap = juce::roundToInt (width * buttonGap);
    const auto left = dialog.getX() + juce::roundToInt (width * middle - float (oneWidth) - float (gap) * middle);
    const auto top = inner.getBottom() - rowHeight;
    confirm.setBounds (left, top, oneWidth, rowHeight);
    cancel.setBounds (left + oneWidth + gap, top, oneWidth, rowHeight);
}

} // namespace mk::pluginCore
