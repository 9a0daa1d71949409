// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Exploration.h"
#include "TimeStrip.h"

namespace mk::orlo
{

/** What wheel, touchpad, double-clicks and keys do to a frozen picture:

    - the wheel and pinching zoom in time about the cursor, with ctrl (on macOS command) in frequency;
    - the wheel with shift, and a wheel or two fingers that go sideways, move in time;
    - a double-click goes back to the frozen picture.

    [message thread] */
class ExploreGestures final : private juce::MouseListener
{
public:
    /** Both must outlive this. */
    ExploreGestures (Exploration& exploration, SpectrogramComponent& view);
    ~ExploreGestures() override;

    /** Does the same for a strip below the view, which must outlive this. */
    void addStrip (TimeStrip& strip);

    /** Left, right, +, -, Page Up, Page Down, Home, End, 0 and Escape. Whether the key has done something. */
    bool keyPressed (const juce::KeyPress& key);

private:
    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override;
    void mouseMagnify (const juce::MouseEvent&, float scaleFactor) override;
    void mouseDoubleClick (const juce::MouseEvent&) override;

    void zoom (const juce::MouseEvent& event, double factor);

    Exploration& exploration;
    SpectrogramComponent& view;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ExploreGestures)
};

} // namespace mk::orlo
