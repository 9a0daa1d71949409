// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UpdateChecker.h"

#include "UserAgent.h"

#include "plugin_core/processor/PluginProcessor.h"

#include <atomic>

namespace mk::pluginCore
{
namespace
{
// The check is delayed so that it does not slow down the opening of the window.
constexpr int numDelaySteps = 49;
constexpr int delayStepMs = 5;

constexpr int threadExitMs = 50;
constexpr int destructionMs = 15000;

/** Whether a check is running in this process; set and cleared on message threads. */
std::atomic<bool> checkUnderWay { false };
} // namespace

UpdateChecker::UpdateChecker (const PluginProcessor& processor, std::unique_ptr<HttpTransport> transportToUse)
    : juce::Thread ("Web Updater"),
      userAgent (makeUserAgent (processor.getName(), processor.getProductInfo().version)),
      currentVersion (VersionNumber::parse (processor.getProductInfo().version)),
      transport (std::move (transportToUse)),
      timeLimitMs (HttpRequest {}.timeLimitMs)
{
}

UpdateChecker::~UpdateChecker()
{
    signalThreadShouldExit();
    transport->cancel();
    stopThread (destructionMs);
    cancelPendingUpdate();
    releaseClaim();
}

bool UpdateChecker::checkVersion()
{
    if (isThreadRunning() || checkUnderWay.exchange (true, std::memory_order_acq_rel))
        return false;

    holdsClaim = true;
    fetchChangeLog = false;
    startThread();
    return true;
}

bool UpdateChecker::requestChangeLog()
{
    if (! waitForThreadToExit (threadExitMs))
        return false;

    fetchChangeLog = true;
    startThread();
    return true;
}

void UpdateChecker::releaseClaim() noexcept
{
    if (std::exchange (holdsClaim, false))
        checkUnderWay.store (false, std::memory_order_release);
}

//==============================================================================
void UpdateChecker::run()
{
    if (fetchChangeLog)
        fetchLog();
    else if (waitBeforeRequest())
        fetchVersion();

    if (! threadShouldExit())
        triggerAsyncUpdate();
}

bool UpdateChecker::waitBeforeRequest() const
{
    for (int step = 0; step < numDelaySteps && ! threadShouldExit(); ++step)
        static_cast<void> (wait (delayStepMs));

    return ! threadShouldExit();
}

std::optional<juce::String> UpdateChecker::fetchPage (const juce::String& page, size_t maxBytes)
{
    const HttpRequest request { baseUrl.getChildURL (page).toString (false), userAgent, maxBytes, timeLimitMs };
    const juce::WeakReference<UpdateChecker> weakThis (this);
    const auto shouldStop = [weakThis] { return weakThis == nullptr || weakThis->threadShouldExit(); };

    if (threadShouldExit())
        return std::nullopt;

    const auto reply = transport->get (request, shouldStop);
    return reply.has_value() && ! shouldStop() ? std::optional (updateReplies::decode (*reply)) : std::nullopt;
}

void UpdateChecker::fetchVersion()
{
    if (const auto reply = fetchPage ("lastVersion.php", updateReplies::maxVersionBytes))
        latest = updateReplies::parseVersion (*reply);

    newVersionAvailable = currentVersion.getRank() < latest.version.getRank();
}

void UpdateChecker::fetchLog()
{
    const auto reply = fetchPage ("changeLogMac.php", updateReplies::maxChangeLogBytes);
    changeLog = updateReplies::parseChangeLog (reply.value_or (juce::String()));
}

void UpdateChecker::handleAsyncUpdate()
{
    if (std::exchange (fetchChangeLog, false))
    {
        listeners.call ([this] (Listener& listener) { listener.changeLogReceived (*this, changeLog); });
        return;
    }

    listeners.call ([this] (Listener& listener)
                    { listener.versionInfoReceived (*this, newVersionAvailable, latest.releaseDate); });
    releaseClaim();
}

} // namespace mk::pluginCore
