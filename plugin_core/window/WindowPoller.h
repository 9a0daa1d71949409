// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "WindowEvents.h"

#include <functional>
#include <vector>

namespace mk::pluginCore
{

/** The one timer that all windows of a process share, for clients that must poll because nothing notifies them.
    It fires ten times a second, and every 40 ms for a second after the mouse has done something in a client's
    component or a window has changed. A window event from the system triggers a step at once if the timer was idle.
    [message thread]

    Used through WindowPoller::Client; shared with a juce::SharedResourcePointer. */
class WindowPoller final : private juce::Timer, private juce::MouseListener
{
public:
    class Client;

    static constexpr int idleMs = 100;
    static constexpr int busyMs = 40;

    WindowPoller();
    ~WindowPoller() override;

    /** One step, without waiting for the timer. */
    void pollNow();

    /** The timer's present period in milliseconds. */
    [[nodiscard]] int getPeriodMs() const noexcept { return getTimerInterval(); }

private:
    void timerCallback() override { pollNow(); }
    void mouseMove (const juce::MouseEvent&) override { hurry(); }
    void mouseEnter (const juce::MouseEvent&) override { hurry(); }
    void mouseExit (const juce::MouseEvent&) override { hurry(); }
    void mouseDown (const juce::MouseEvent&) override { hurry(); }
    void mouseDrag (const juce::MouseEvent&) override { hurry(); }
    void mouseUp (const juce::MouseEvent&) override { hurry(); }
    void hurry();
    void readNews();
    void updatePace (bool somethingChanged);

    std::vector<Client*> clients;
    WindowEvents events { [this] { readNews(); } };
    std::optional<std::uint32_t> lastNumChanges;
    int msToCheck = 0, busySteps = 0;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WindowPoller)
};

/** Calls a function at every step of the poller, until the client is destroyed. */
class WindowPoller::Client
{
public:
    /** The argument tells whether the system's state of the component's window may have changed; if not, the
        function need not query the system again, which may take round trips to another process. The
        component must outlive the client; the function may delete any client. */
    Client (juce::Component& component, std::function<void (bool windowMayHaveChanged)> look);

    /** For a client that belongs to no window. */
    explicit Client (std::function<void()> look);
    ~Client();

private:
    friend class WindowPoller;
    void step (bool windowMayHaveChanged);

    juce::Component* const component;
    const std::function<void (bool)> look;
    const juce::ComponentPeer* lastPeer = nullptr; // compared, not used
    const juce::SharedResourcePointer<WindowPoller> poller;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Client)
};

} // namespace mk::pluginCore
