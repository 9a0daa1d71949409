// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WindowPoller.h"

#include <algorithm>
#include <utility>

namespace mk::pluginCore
{
namespace
{
constexpr int busyAfterChangeMs = 1000;
constexpr int numBusySteps = busyAfterChangeMs / WindowPoller::busyMs;

// Some changes may send no event, so everything is queried again at this interval.
constexpr int checkEveryMs = 1000;
} // namespace

WindowPoller::WindowPoller() { startTimer (busyMs); }

WindowPoller::~WindowPoller() = default;

void WindowPoller::readNews()
{
    // Events come in bursts: the first one triggers a step, and the timer, which then runs fast, handles the rest.
    if (events.getNumChanges() != lastNumChanges && busySteps == 0)
        pollNow();
}

void WindowPoller::pollNow()
{
    // A client's step, or an event, may release the last handle to this poller, and may add or remove clients.
    const juce::SharedResourcePointer<WindowPoller> keepAlive;

    const auto numChanges = events.getNumChanges();
    const auto somethingChanged = std::exchange (lastNumChanges, numChanges) != numChanges;
    msToCheck -= getTimerInterval();
    const auto isDue = msToCheck <= 0;

    if (isDue)
        msToCheck = checkEveryMs;

    const auto mayHaveChanged = somethingChanged || isDue || ! numChanges.has_value();

    // After the changes have been counted, since this may call readNews().
    WindowEvents::handleQueuedEvents();
    const auto present = clients;

    for (auto* const client : present)
        if (std::find (clients.begin(), clients.end(), client) != clients.end())
            client->step (mayHaveChanged);

    updatePace (somethingChanged);
}

void WindowPoller::updatePace (bool somethingChanged)
{
    busySteps = somethingChanged ? numBusySteps : juce::jmax (0, busySteps - 1);
    const auto periodMs = busySteps > 0 ? busyMs : idleMs;

    if (periodMs != getTimerInterval())
        startTimer (periodMs);
}

void WindowPoller::hurry()
{
    busySteps = numBusySteps;

    if (getTimerInterval() != busyMs)
        startTimer (busyMs);
}

//==============================================================================
WindowPoller::Client::Client (juce::Component& componentToWatch, std::function<void (bool)> lookToUse)
    : component (&componentToWatch), look (std::move (lookToUse))
{
    poller->clients.push_back (this);
    component->addMouseListener (&*poller, true);
}

WindowPoller::Client::Client (std::function<void()> lookToUse)
    : component (nullptr), look ([call = std::move (lookToUse)] (bool) { call(); })
{
    poller->clients.push_back (this);
}

WindowPoller::Client::~Client()
{
    std::erase (poller->clients, this);

    if (component != nullptr)
        component->removeMouseListener (&*poller);
}

void WindowPoller::Client::step (bool windowMayHaveChanged)
{
    const auto* const peer = component != nullptr ? component->getPeer() : nullptr;
    const auto hasOtherPeer = std::exchange (lastPeer, peer) != peer;
    look (windowMayHaveChanged || hasOtherPeer);
}

} // namespace mk::pluginCore
