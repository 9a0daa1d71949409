// SPDX-License-Identifier: AGPL-3.0-or-later
// Opens and closes windows while the web thread is at each step of its work. Most useful under
// ThreadSanitizer.
#include "orlo/window/AudioPluginAudioProcessorEditor.h"
#include "orlo/window/CreateEditor.h"

#include "tests/support/FakeSite.h"
#include "tests/support/HttpServer.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace mk::orlo::test
{
namespace
{

/** A listener that requests the change log after a new version, as a window does. */
class ReadingListener final : public pluginCore::UpdateChecker::Listener
{
public:
    void versionInfoReceived (pluginCore::UpdateChecker& checker, bool newVersionAvailable, juce::int64) override
    {
        ++numVersions;

        if (newVersionAvailable)
            static_cast<void> (checker.requestChangeLog());
    }

    void changeLogReceived (pluginCore::UpdateChecker&, const juce::String& text) override
    {
        numLogs += text == "the log" ? 1 : 0;
    }

    int numVersions = 0;
    int numLogs = 0;
};

void answer (HttpServer::Connection& connection)
{
    const auto isLog = connection.getPath().contains ("changeLog");
    connection.send (HttpServer::makeReply (isLog ? "the log" : "macVersion:9.9.9;macReleaseDate:5"));
}

TEST (WebThread, CanBeEndedAtAnyStepOfItsWork)
{
    AudioPluginAudioProcessor processor { createEditor };
    HttpServer server (answer);
    size_t numRequestsBefore = 0;
    ReadingListener* listening = nullptr;

    // The steps at which the thread's owner is destroyed: before the start, around the request for the version,
    // after the version was reported, around the request for the change log, after the log was reported.
    const auto hasRequests = [&] (size_t number)
    { return [&, number] { return server.getRequests().size() >= numRequestsBefore + number; }; };
    const std::vector<std::function<bool()>> points { [] { return true; },
                                                      hasRequests (1),
                                                      [&] { return listening->numVersions > 0; },
                                                      hasRequests (2),
                                                      [&] { return listening->numLogs > 0; } };

    // Repeated, since the timing of the thread varies.
    for (int round = 0; round < 4; ++round)
    {
        for (const auto& isReached : points)
        {
            numRequestsBefore = server.getRequests().size();
            ReadingListener listener;
            listening = &listener;
            pluginCore::UpdateChecker checker (processor, pluginCore::HttpTransport::makeForThisSystem());
            checker.setBaseUrl (juce::URL (server.getAddress()));
            checker.addListener (&listener);
            ASSERT_TRUE (checker.checkVersion());
            ASSERT_TRUE (pumpUntil (isReached));
            checker.removeListener (&listener);
        }
    }
}

TEST (WebThread, ServesWindowsThatOpenAndClose)
{
    FakeSite site;
    AudioPluginAudioProcessor first { createEditor }, second { createEditor };

    for (int i = 0; i < 10; ++i)
    {
        // The release date moves on each day, so that each window reports a new version.
        site.now += 86400000;
        site.setReplies ("macVersion:9.9.9;macReleaseDate:" + juce::String (site.now), "the log");
        const auto numChecks = site.count ("lastVersion.php"), numLogs = site.count ("changeLogMac.php");
        AudioPluginAudioProcessorEditor window (first, site.makeEnvironment());
        auto other = std::make_unique<AudioPluginAudioProcessorEditor> (second, site.makeEnvironment());
        window.startUpdateCheck();
        other->startUpdateCheck();

        if (i % 2 == 0)
            other = nullptr;

        // The windows close before any request, after the request for the version, or after that for the log.
        const std::vector<std::function<bool()>> points { [] { return true; },
                                                          [&] { return site.count ("lastVersion.php") > numChecks; },
                                                          [&] { return site.count ("changeLogMac.php") > numLogs; } };
        ASSERT_TRUE (pumpUntil (points[size_t (i) % points.size()]));
    }

    // Only one of two windows sends the request.
    EXPECT_LE (site.count ("lastVersion.php"), 10);
}

} // namespace
} // namespace mk::orlo::test
