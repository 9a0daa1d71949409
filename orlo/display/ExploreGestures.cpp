// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ExploreGestures.h"

#include "plugin_core/controls/ComponentIgnoringRightButton.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
// A notch of a wheel is about 0.2 to 0.5, depending on the system; smooth gestures are smaller.
constexpr double octavesPerTurn = 1.6;
constexpr double viewsPerTurn = 0.5;

constexpr double keyZoom = 1.41421356;
constexpr double keyMove = 0.1; // views
} // namespace

ExploreGestures::ExploreGestures (Exploration& explorationToUse, SpectrogramComponent& viewToUse)
    : exploration (explorationToUse), view (viewToUse)
{
    view.addMouseListener (this, false);
    view.onKeyPressed = [this] (const juce::KeyPress& key) { return keyPressed (key); };
}

void ExploreGestures::addStrip (TimeStrip& strip)
{
    strip.addMouseListener (this, false);
    strip.onKeyPressed = [this] (const juce::KeyPress& key) { return keyPressed (key); };
}

ExploreGestures::~ExploreGestures()
{
    view.onKeyPressed = nullptr;
    view.removeMouseListener (this);
}

//==============================================================================
void ExploreGestures::zoom (const juce::MouseEvent& event, double factor)
{
    if (event.mods.isCommandDown())
        exploration.zoomFrequencies (factor, event.position.y);
    else
        exploration.zoomTime (factor, event.position.x);
}

void ExploreGestures::mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel)
{
    const auto isSideways = std::abs (wheel.deltaX) > std::abs (wheel.deltaY);
    const auto turn = double (isSideways ? wheel.deltaX : wheel.deltaY);

    if (juce::exactlyEqual (turn, 0.0))
        return;

    if (! event.mods.isCommandDown() && (isSideways || event.mods.isShiftDown()))
        exploration.changeTimeView ([turn] (TimeView& times)
                                    { times.moveBy (-turn * viewsPerTurn * times.getLength()); });
    else
        zoom (event, std::exp2 (-turn * octavesPerTurn));
}

void ExploreGestures::mouseMagnify (const juce::MouseEvent& event, float scaleFactor)
{
    if (scaleFactor > 0.0f)
        zoom (event, 1.0 / double (scaleFactor));
}

void ExploreGestures::mouseDoubleClick (const juce::MouseEvent& event)
{
    if (pluginCore::isEditingClick (event.mods) && ! event.mods.isShiftDown())
        exploration.goHome();
}

//==============================================================================
bool ExploreGestures::keyPressed (const juce::KeyPress& key)
{
    using Key = juce::KeyPress;
    const auto code = key.getKeyCode();
    const auto letter = key.getTextCharacter();
    const auto modifiers = key.getModifiers();

    if (code == Key::escapeKey)
        return exploration.stop();

    if (modifiers.isCommandDown() || modifiers.isCtrlDown() || modifiers.isAltDown() || ! exploration.isPossible())
        return false;

    const auto move = [this] (double views)
    { return exploration.changeTimeView ([views] (TimeView& times) { times.moveBy (views * times.getLength()); }); };

    if (code == Key::leftKey)
        return move (-keyMove);

    if (code == Key::rightKey)
        return move (keyMove);

    if (code == Key::pageUpKey)
        return move (-1.0);

    if (code == Key::pageDownKey)
        return move (1.0);

    if (code == Key::homeKey)
        return exploration.changeTimeView ([] (TimeView& times) { times.goToStart(); });

    if (code == Key::endKey)
        return exploration.changeTimeView ([] (TimeView& times) { times.goToEnd(); });

    const auto middle = float (view.getWidth()) * 0.5f;

    // The plus of most keyboards needs the shift key where the equals sign is, so both do.
    if (letter == '+' || letter == '=' || code == Key::numberPadAdd)
        return exploration.zoomTime (1.0 / keyZoom, middle);

    if (letter == '-' || code == Key::numberPadSubtract)
        return exploration.zoomTime (keyZoom, middle);

    if (letter != '0' && code != Key::numberPad0)
        return false;

    exploration.goHome();
    return true;
}

} // namespace mk::orlo
