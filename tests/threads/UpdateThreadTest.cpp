// SPDX-License-Identifier: AGPL-3.0-or-later
// Windows that open and close while the web thread is at every point of its work. Worth most under
// ThreadSanitizer.
#include "orlo/window/AudioPluginAudioProcessorEditor.h"
#include "orlo/window/CreateEditor.h"

#include "tests/support/FakeSite.h"
#include "tests/support/HttpServer.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

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
        if (newVersionAvailable)
            static_cast<void> (checker.requestChangeLog());
    }

    void changeLogReceived (pluginCore::UpdateChecker&, const juce::String& text) override
    {
        numLogs += text == "the log" ? 1 : 0;
    }

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

    for (int lifetimeMs = 0; lifetimeMs <= 400; lifetimeMs += 20)
    {
        ReadingListener listener;
        pluginCore::UpdateChecker checker (processor, pluginCore::HttpTransport::makeForThisSystem());
        checker.setBaseUrl (juce::URL (server.getAddress()));
        checker.addListener (&listener);
        ASSERT_TRUE (checker.checkVersion());

        const auto end = juce::Time::getMillisecondCounter() + juce::uint32 (lifetimeMs);
        ASSERT_TRUE (pumpUntil ([end] { return juce::Time::getMillisecondCounter() >= end; }));
        checker.removeListener (&listener);
    }

    // One that is left alone comes to its end.
    ReadingListener listener;
    pluginCore::UpdateChecker checker (processor, pluginCore::HttpTransport::makeForThisSystem());
    checker.setBaseUrl (juce::URL (server.getAddress()));
    checker.addListener (&listener);
    ASSERT_TRUE (checker.checkVersion());
    EXPECT_TRUE (pumpUntil ([&] { return listener.numLogs > 0; }));
}

TEST (WebThread, ServesWindowsThatComeAndGo)
{
    FakeSite site;
    site.setReplies ("macVersion:9.9.9;macReleaseDate:" + juce::String (site.now), "the log");
    AudioPluginAudioProcessor first { createEditor }, second { createEditor };

    for (int i = 0; i < 10; ++i)
    {
        site.now += 86400000;
        AudioPluginAudioProcessorEditor window (first, site.makeEnvironment());
        auto other = std::make_unique<AudioPluginAudioProcessorEditor> (second, site.makeEnvironment());
        window.startUpdateCheck();
        other->startUpdateCheck();

        if (i % 2 == 0)
            other = nullptr;

        const auto end = juce::Time::getMillisecondCounter() + juce::uint32 (50 * i);
        ASSERT_TRUE (pumpUntil ([end] { return juce::Time::getMillisecondCounter() >= end; }));
    }

    // Of two windows one asks.
    EXPECT_LE (site.count ("lastVersion.php"), 10);
}

} // namespace
} // namespace mk::orlo::test
