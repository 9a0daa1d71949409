// SPDX-License-Identifier: AGPL-3.0-or-later
// Windows that open and close while the web thread is at every point of its work. Worth most under
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

/** A listener that goes on to the change log, as a window does. */
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

TEST (WebThread, EndsAtAnyPointOfItsWork)
{
    AudioPluginAudioProcessor processor { createEditor };
    HttpServer server (answer);
    size_t numRequestsBefore = 0;
    ReadingListener* listening = nullptr;

    // How far the work has come when the thread's owner goes: it waits for its start, is about to ask or has
    // asked, has told of the version, is about to ask for the log or has asked, has told of the log.
    const auto hasRequests = [&] (size_t number)
    { return [&, number] { return server.getRequests().size() >= numRequestsBefore + number; }; };
    const std::vector<std::function<bool()>> points { [] { return true; },
                                                      hasRequests (1),
                                                      [&] { return listening->numVersions > 0; },
                                                      hasRequests (2),
                                                      [&] { return listening->numLogs > 0; } };

    // Several times, since what the thread does next is its own affair.
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

TEST (WebThread, ServesWindowsThatComeAndGo)
{
    FakeSite site;
    AudioPluginAudioProcessor first { createEditor }, second { createEditor };

    for (int i = 0; i < 10; ++i)
    {
        // Of a release of today each window tells.
        site.now += 86400000;
        site.setReplies ("macVersion:9.9.9;macReleaseDate:" + juce::String (site.now), "the log");
        const auto numChecks = site.count ("lastVersion.php"), numLogs = site.count ("changeLogMac.php");
        AudioPluginAudioProcessorEditor window (first, site.makeEnvironment());
        auto other = std::make_unique<AudioPluginAudioProcessorEditor> (second, site.makeEnvironment());
        window.startUpdateCheck();
        other->startUpdateCheck();

        if (i % 2 == 0)
            other = nullptr;

        // The windows go when nothing has been asked yet, when the version has, and when the log has.
        const std::vector<std::function<bool()>> points { [] { return true; },
                                                          [&] { return site.count ("lastVersion.php") > numChecks; },
                                                          [&] { return site.count ("changeLogMac.php") > numLogs; } };
        ASSERT_TRUE (pumpUntil (points[size_t (i) % points.size()]));
    }

    // Of two windows one asks.
    EXPECT_LE (site.count ("lastVersion.php"), 10);
}

} // namespace
} // namespace mk::orlo::test
