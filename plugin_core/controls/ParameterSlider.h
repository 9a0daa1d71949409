// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnimatedComponent.h"
#include "ComponentIgnoringRightButton.h"

#include <functional>

namespace mk::pluginCore
{

/** The slider of the ready-made controls: only the left button moves it, a double click resets it to its
    double-click value if that is set and in range, arrow keys move it by a step and Return edits its text. The
    Tab key stops once for slider and text.
    Each action of the user is enclosed in the slider's drag notifications. [message thread] */
class ParameterSlider : public ComponentIgnoringRightButton<AnimatedComponent<juce::Slider>>
{
public:
    ParameterSlider();

    /** Called with each new popup display of the slider. */
    std::function<void (juce::Component&)> popupDisplayCreated;

    /** Called at the end of each action of the user, after the value is written and before the slider's
        listeners are called. */
    std::function<void()> gestureEnded;

    /** The thumb of a two-value slider that a press would drag, 1 for the minimum and 2 for the maximum; 0
        while the mouse is outside, and for other sliders. */
    [[nodiscard]] int getThumbNearMouse() const noexcept { return thumbNearMouse; }

    /** The thumb that is nearer to a position along the track, with the same numbers. At equal distance it is
        the maximum, and the minimum if both thumbs lie to the right. */
    [[nodiscard]] int findNearestThumb (juce::Point<float> position) const;

    /** Sets the tooltip of the text box too. */
    void setTooltip (const juce::String& tooltip) override;

    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    bool keyPressed (const juce::KeyPress& key) override;
    void resized() override;
    void enablementChanged() override;
    void startedDragging() override;
    void stoppedDragging() override;

private:
    using Base = ComponentIgnoringRightButton<AnimatedComponent<juce::Slider>>;

    void handleNewPopup();
    void keepKeyboardFromTextBox();
    void setThumbNearMouse (int thumb);

    juce::Component::SafePointer<juce::Component> popupHandled;
    int thumbNearMouse = 0;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ParameterSlider)
};

} // namespace mk::pluginCore
