// SPDX-License-Identifier: AGPL-3.0-or-later
// What the view does with mouse and keys.
#include "MenuKey.h"
#include "SpectrogramComponent.h"
#include "orlo/processor/ParameterAccess.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"

namespace mk::orlo
{

void SpectrogramComponent::storeCursor (const juce::MouseEvent& event)
{
    if (crosshairVisible)
        repaintCrosshair();

    cursorX = juce::jlimit (0.0f, float (getWidth()), event.position.x);
    cursorY = event.position.y;

    if (crosshairVisible)
        repaintCrosshair();
}

Crosshair SpectrogramComponent::getCrosshair() const noexcept
{
    return placeCrosshair ({ cursorX, cursorY }, float (getWidth()), float (getHeight()), doubleResolution);
}

void SpectrogramComponent::repaintCrosshair()
{
    const auto lines = getCrosshair();

    for (const auto& line : { lines.horizontal, lines.vertical })
        repaint (line.getSmallestIntegerContainer().expanded (1));
}

void SpectrogramComponent::moveCrosshair (juce::Point<float> place)
{
    if (crosshairVisible)
        repaintCrosshair();

    cursorX = juce::jlimit (0.0f, float (getWidth()), place.x);
    cursorY = juce::jlimit (0.0f, float (getHeight()), place.y);

    if (crosshairVisible)
        repaintCrosshair();
}

void SpectrogramComponent::callWithFrequency (const MouseCallback& callback, const juce::MouseEvent& event)
{
    if (callback != nullptr)
        callback (event.withNewPosition (juce::Point { cursorX, cursorY }), getFrequencyAt (cursorY));
}

void SpectrogramComponent::mouseMove (const juce::MouseEvent& event)
{
    if (event.mouseWasDraggedSinceMouseDown())
        return;

    storeCursor (event);

    if (! pluginCore::isMenuClick (event.mods))
        callWithFrequency (onMouseMoved, event);
}

void SpectrogramComponent::mouseEnter (const juce::MouseEvent& event)
{
    if (onMouseEntered != nullptr)
        onMouseEntered (event);
}

void SpectrogramComponent::mouseExit (const juce::MouseEvent& event)
{
    // The mouse is still over the view when it moves onto a child or a popup of it.
    if (! isMouseOver (true) && onMouseExited != nullptr)
        onMouseExited (event);
}

void SpectrogramComponent::mouseDown (const juce::MouseEvent& event)
{
    storeCursor (event);

    // Only a plain left click is handled here: the container opens the menu, and the middle button has no function.
    if (! pluginCore::isEditingClick (event.mods))
        return;

    if (event.mods.isShiftDown())
    {
        toggleFreeze();
        return;
    }

    if (onMouseHeld != nullptr)
    {
        crosshairVisible = true;
        setMouseCursor (juce::MouseCursor::NoCursor);
        callWithFrequency (onMouseHeld, event);
        repaintCrosshair();
    }
}

void SpectrogramComponent::mouseDrag (const juce::MouseEvent& event)
{
    storeCursor (event);

    // A drag moves the crosshair only if its own press has shown it: a drag after a shift-click or with another button
    // does nothing.
    if (! crosshairVisible)
        return;

    if (! pluginCore::isMenuClick (event.mods))
        callWithFrequency (onMouseHeld, event);
}

void SpectrogramComponent::mouseUp (const juce::MouseEvent& event)
{
    if (std::exchange (crosshairVisible, false))
        repaintCrosshair();

    setMouseCursor (juce::MouseCursor::CrosshairCursor);

    if (onMouseReleased != nullptr)
        onMouseReleased (event);
}

void SpectrogramComponent::toggleFreeze()
{
    freezeAttachment.setValueAsCompleteGesture (isOn (freezeParameter) ? 0.0f : 1.0f);
}

//==============================================================================
bool SpectrogramComponent::keyPressed (const juce::KeyPress& key)
{
    return (onKeyPressed != nullptr && onKeyPressed (key)) || (menuKey::isShiftF10 (key) && requestMenu());
}

bool SpectrogramComponent::keyStateChanged (bool isKeyDown)
{
    return isKeyDown && menuKey::isMenuKeyDown() && requestMenu();
}

bool SpectrogramComponent::requestMenu()
{
    if (onMenuRequested == nullptr)
        return false;

    onMenuRequested();
    return true;
}

} // namespace mk::orlo
