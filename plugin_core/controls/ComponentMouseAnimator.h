// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/style/GenericComponentAnimator.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace mk::pluginCore
{

/** Keeps, for one component and its children, the time since the mouse entered, left, pressed, released and
    clicked, and repaints the component while a fade runs. Fades have a duration of 0 until setDuration() is
    called. May outlive the component. [message thread] */
class ComponentMouseAnimator : public juce::Timer, public juce::MouseListener, public juce::ComponentListener
{
public:
    using State = GenericComponentAnimator::State;
    using Times = GenericComponentAnimator::Times;

    /** The time between two repaints of a running fade. */
    static constexpr int defaultTickMs = 40;

    explicit ComponentMouseAnimator (juce::Component& component, int tickMs = defaultTickMs);
    ~ComponentMouseAnimator() override;

    /** How long the fade after an event takes, in milliseconds. */
    void setDuration (State event, int milliseconds) noexcept;

    [[nodiscard]] const Times& getTimes() const noexcept { return times; }
    [[nodiscard]] int getTickMs() const noexcept { return tickMs; }

    /** Whether the mouse has entered and not left yet. */
    [[nodiscard]] bool isMouseInside() const noexcept { return mouseOverToken != nullptr; }

    /** Components that are used by mouse, wheel or key call press() and release() at the start and the end of
        a drag, and click() at a click. */
    void press();
    void release();
    void click();

    /** Called at each tick: repaints the visible part of the component. */
    virtual void update();

    void timerCallback() override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void componentVisibilityChanged (juce::Component& component) override;
    void componentBeingDeleted (juce::Component& component) override;

private:
    struct MouseOverToken
    {
    };

    void start (State event);
    void leaveUnlessInside();
    void forgetEverything();

    juce::WeakReference<juce::Component> component;
    const int tickMs;
    Times times;
    std::unique_ptr<MouseOverToken> mouseOverToken;
    bool isPressIgnored = false; // if the last press was ignored, its release is ignored too

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ComponentMouseAnimator)
};

} // namespace mk::pluginCore
