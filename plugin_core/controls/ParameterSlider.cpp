// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ParameterSlider.h"

#include "plugin_core/style/MouseFade.h"

#include <cmath>
#include <utility>

namespace mk::pluginCore
{
namespace
{
// Shifts two thumbs at the same position apart, in pixels.
constexpr float thumbOffset = 0.1f;

// Distances that differ by less are equal, in pixels.
constexpr float tolerance = 0.001f;
constexpr int minThumb = 1;
constexpr int maxThumb = 2;
} // namespace

ParameterSlider::ParameterSlider()
{
    setWantsKeyboardFocus (true);
    getMouseAnimator().setDuration (State::entered, mouseFade::enterMs);
    getMouseAnimator().setDuration (State::left, mouseFade::leaveMs);
}

void ParameterSlider::setTooltip (const juce::String& newTooltip)
{
    Base::setTooltip (newTooltip);

    for (auto* child : getChildren())
        if (auto* label = dynamic_cast<juce::Label*> (child))
            label->setTooltip (newTooltip);
}

void ParameterSlider::mouseDown (const juce::MouseEvent& event)
{
    Base::mouseDown (event);
    handleNewPopup();
}

void ParameterSlider::mouseDrag (const juce::MouseEvent& event)
{
    Base::mouseDrag (event);
    handleNewPopup();
}

void ParameterSlider::handleNewPopup()
{
    auto* popup = getCurrentPopupDisplay();

    if (popup == nullptr || popup == popupHandled)
        return;

    popupHandled = popup;
    popup->setInterceptsMouseClicks (false, false);

    if (popupDisplayCreated != nullptr)
        popupDisplayCreated (*popup);
}

void ParameterSlider::mouseDoubleClick (const juce::MouseEvent& event)
{
    // A double click resets the slider's single value, which a two-value slider does not have.
    if (! isTwoValue())
        Base::mouseDoubleClick (event);
}

void ParameterSlider::mouseMove (const juce::MouseEvent& event)
{
    Base::mouseMove (event);
    setThumbNearMouse (findNearestThumb (event.position));
}

void ParameterSlider::mouseExit (const juce::MouseEvent& event)
{
    Base::mouseExit (event);
    setThumbNearMouse (0);
}

void ParameterSlider::setThumbNearMouse (int thumb)
{
    if (std::exchange (thumbNearMouse, thumb) != thumb)
        repaint();
}

int ParameterSlider::findNearestThumb (juce::Point<float> position) const
{
    if (! isTwoValue())
        return 0;

    const auto along = isVertical() ? position.y : position.x;
    const auto outwards = isVertical() ? -thumbOffset : thumbOffset;
    const auto toMinimum = std::abs (getPositionOfValue (getMinValue()) - outwards - along);
    const auto toMaximum = std::abs (getPositionOfValue (getMaxValue()) + outwards - along);
    return toMaximum <= toMinimum + tolerance ? maxThumb : minThumb;
}

bool ParameterSlider::keyPressed (const juce::KeyPress& key)
{
    if (! isEnabled() || isTwoValue() || isMouseButtonDown (true))
        return false;

    if (key == juce::KeyPress::returnKey && isTextBoxEditable() && getTextBoxPosition() != NoTextBox)
    {
        showTextBox();
        return true;
    }

    for (const auto arrow :
         { juce::KeyPress::upKey, juce::KeyPress::downKey, juce::KeyPress::leftKey, juce::KeyPress::rightKey })
    {
        if (key == arrow)
        {
            const ScopedDragNotification gesture (*this);
            return Base::keyPressed (key);
        }
    }

    return false;
}

// The Tab key would stop at an editable text box and open its editor. The slider recreates the box at each change of
// style, which ends with a call of resized(), and makes the box editable again whenever it is enabled.
void ParameterSlider::keepKeyboardFromTextBox()
{
    for (auto* child : getChildren())
        if (dynamic_cast<juce::Label*> (child) != nullptr)
            child->setWantsKeyboardFocus (false);
}

void ParameterSlider::resized()
{
    Base::resized();
    keepKeyboardFromTextBox();
}

void ParameterSlider::enablementChanged()
{
    Base::enablementChanged();
    keepKeyboardFromTextBox();
}

void ParameterSlider::startedDragging() { getMouseAnimator().press(); }

void ParameterSlider::stoppedDragging()
{
    getMouseAnimator().release();

    if (gestureEnded != nullptr)
        gestureEnded();
}

} // namespace mk::pluginCore
