// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginMoveDetector.h"

#include "ActiveApplication.h"

#include <cmath>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] juce::int64 getArea (juce::Rectangle<int> rectangle) noexcept
{
    return juce::int64 (rectangle.getWidth()) * rectangle.getHeight();
}
} // namespace

PluginMoveDetector::System PluginMoveDetector::System::makeReal()
{
    return { [] (const juce::Component& watched) { return pluginCore::isApplicationActive (watched); },
             [] { return juce::Desktop::getInstance().getDisplays().displays; } };
}

PluginMoveDetector::PluginMoveDetector (juce::Component& componentToWatch, System systemToUse)
    : component (&componentToWatch), system (std::move (systemToUse))
{
}

//==============================================================================
const juce::Displays::Display* PluginMoveDetector::findDisplay (const DisplayList& displays,
                                                                juce::Rectangle<int> area) noexcept
{
    const juce::Displays::Display* best = nullptr;
    juce::int64 bestArea = 0;

    for (const auto& display : displays)
    {
        const auto sharedArea = getArea (display.totalArea.getIntersection (area));

        if (sharedArea >= bestArea)
        {
            best = &display;
            bestArea = sharedArea;
        }
    }

    return best;
}

bool PluginMoveDetector::isHighDensity (double scale) noexcept
{
    return scale > 1.0 && juce::exactlyEqual (std::fmod (scale, 2.0), 0.0);
}

//==============================================================================
void PluginMoveDetector::checkNow()
{
    if (! updateApplicationActive())
        return;

    auto* const peer = findPeer();

    if (peer == nullptr)
        return;

    const auto position = peer->localToGlobal (juce::Point<float>());

    if (position == lastPosition)
        return;

    lastPosition = position;
    listeners.call ([this] (Listener& listener) { listener.windowMoved (*this); });
    updateRetinaState();
}

bool PluginMoveDetector::updateApplicationActive()
{
    const auto* const watched = component.get();
    const auto isActive = watched == nullptr || system.isApplicationActive (*watched);

    if (isActive != applicationWasActive)
    {
        applicationWasActive = isActive;
        listeners.call ([this, isActive] (Listener& listener)
                        { listener.applicationActiveChanged (*this, ! isActive); });
    }

    return isActive;
}

juce::ComponentPeer* PluginMoveDetector::findPeer()
{
    if (topLevelComponent == nullptr && component != nullptr)
        topLevelComponent = component->getTopLevelComponent();

    // A move of a hidden window is reported once the window is visible again.
    const auto isShown = topLevelComponent != nullptr && topLevelComponent->isVisible();
    return isShown ? topLevelComponent->getPeer() : nullptr;
}

void PluginMoveDetector::updateRetinaState()
{
    // A listener may have closed the editor.
    if (component == nullptr)
        return;

    const auto displays = system.getDisplays();
    const auto* const display = findDisplay (displays, component->getScreenBounds());
    const auto isOnRetinaDisplay =
        display != nullptr && isHighDensity (display->scale * double (component->getDesktopScaleFactor()));

    if (isOnRetinaDisplay != onRetinaDisplay)
    {
        onRetinaDisplay = isOnRetinaDisplay;
        listeners.call ([this, isOnRetinaDisplay] (Listener& listener)
                        { listener.retinaStateChanged (*this, isOnRetinaDisplay); });
    }
}

} // namespace mk::pluginCore
