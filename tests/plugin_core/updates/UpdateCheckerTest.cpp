// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/UpdateChecker.h"

#include "tests/support/HttpServer.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::getDeadAddress;
using orlo::test::HttpServer;
using orlo::test::pumpPending;
using orlo::test::pumpUntil;
using orlo::test::TestProcessor;
using Connection = HttpServer::Connection;
using Clock = std::chrono::steady_clock;

/** A checker of a program with the version 4.5.6, and what it has reported. */
class Check final : private UpdateChecker::Listener
{
public:
    explicit Check (const juce::String& address, int timeLimitMs = 5000)
    {
        checker->setBaseUrl (juce::URL (address + "/releaseNotes/test"));
        checker->setTimeLimit (timeLimitMs);
        checker->addListener (this);
    }

    /** Runs a check to its end. */
    [[nodiscard]] bool checkVersion()
    {
        const auto before = numVersionReplies;
        EXPECT_TRUE (checker->waitForThreadToExit (1000));
        return checker->checkVersion() && pumpUntil ([&] { return numVersionReplies > before; });
    }

    /** Fetches the change log. */
    [[nodiscard]] bool requestChangeLog()
    {
        const auto before = numChangeLogs;
        return checker->requestChangeLog() && pumpUntil ([&] { return numChangeLogs > before; });
    }

    TestProcessor processor;
    std::unique_ptr<UpdateChecker> checker =
        std::make_unique<UpdateChecker> (processor, HttpTransport::makeForThisSystem());
    int numVersionReplies = 0, numChangeLogs = 0;
    bool isNewer = false;
    juce::int64 releaseDate = -1;
    juce::String changeLog;

private:
    void versionInfoReceived (UpdateChecker&, bool newVersionAvailable, juce::int64 latestReleaseDate) override
    {
        ++numVersionReplies;
        isNewer = newVersionAvailable;
        releaseDate = latestReleaseDate;
    }

    void changeLogReceived (UpdateChecker&, const juce::String& text) override
    {
        ++numChangeLogs;
        changeLog = text;
    }
};

/** The result of a check against the server: "new" or "old", and the date. */
[[nodiscard]] juce::String outcomeOf (const juce::String& address, int timeLimitMs = 5000)
{
    Check check (address, timeLimitMs);

    if (! check.checkVersion())
        return "no end";

    return (check.isNewer ? "new " : "old ") + juce::String (check.releaseDate);
}

[[nodiscard]] juce::String outcomeOf (HttpServer::Handler handler, int timeLimitMs = 5000)
{
    HttpServer server (std::move (handler));
    return outcomeOf (server.getAddress(), timeLimitMs);
}

[[nodiscard]] juce::String outcomeOfReply (std::string_view body, std::string_view status = "200 OK")
{
    return outcomeOf (HttpServer::always (HttpServer::makeReply (body, status)));
}

[[nodiscard]] juce::String changeLogOf (HttpServer::Handler handler, int timeLimitMs = 5000)
{
    HttpServer server (std::move (handler));
    Check check (server.getAddress(), timeLimitMs);
    return check.requestChangeLog() ? check.changeLog : juce::String ("(no end)");
}

void answerWithOneByteASecond (Connection& connection)
{
    connection.send ("HTTP/1.1 200 OK\r\n\r\n");

    for (const char byte : std::string_view ("macVersion:9.9.9;macReleaseDate:7"))
        if (! connection.wait (1000) || ! connection.send ({ &byte, 1 }))
            return;
}

void answerWithoutEnd (Connection& connection, std::string_view beginning)
{
    connection.send ("HTTP/1.1 200 OK\r\n\r\n");
    connection.send (beginning);

    while (connection.send (std::string (4096, ' ')))
    {
    }
}

[[nodiscard]] HttpServer::Handler redirectTimes (int numRedirects, std::string body)
{
    return [numRedirects, body = std::move (body), numDone = 0] (Connection& connection) mutable
    {
        if (++numDone > numRedirects)
            connection.send (HttpServer::makeReply (body));
        else
            connection.send (HttpServer::makeReply ("", "302 Found", "Location: /elsewhere\r\n"));
    };
}

constexpr auto newer = "macVersion:4.6.0;macReleaseDate:1763683200000";
} // namespace

TEST (UpdateChecker, AsksForTheVersionAsTheSiteExpects)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (newer)));
    Check check (server.getAddress());
    ASSERT_TRUE (check.checkVersion());
    EXPECT_TRUE (check.isNewer);
    EXPECT_EQ (check.releaseDate, 1763683200000);

    const auto requests = server.getRequests();
    ASSERT_EQ (requests.size(), 1u);
    EXPECT_TRUE (requests[0].startsWith ("GET /releaseNotes/test/lastVersion.php HTTP/1.1\r\n")) << requests[0];
    EXPECT_TRUE (requests[0].contains ("User-Agent: Test-Plug_in: 1/4.5.6-Unknown (")) << requests[0];
}

TEST (UpdateChecker, FetchesTheChangeLogAfterTheVersion)
{
    HttpServer server (
        [] (Connection& connection)
        { connection.send (HttpServer::makeReply (connection.getPath().contains ("Log") ? "4.6.0\n- New" : newer)); });
    Check check (server.getAddress());
    ASSERT_TRUE (check.checkVersion());
    ASSERT_TRUE (check.requestChangeLog());
    EXPECT_EQ (check.changeLog, "4.6.0\n- New");
    EXPECT_EQ (check.numVersionReplies, 1);
    EXPECT_TRUE (server.getRequests().at (1).startsWith ("GET /releaseNotes/test/changeLogMac.php HTTP/1.1\r\n"));
}

TEST (UpdateChecker, ReportsOnlyNewerVersions)
{
    EXPECT_EQ (outcomeOfReply ("macVersion:4.5.7"), "new 0");
    EXPECT_EQ (outcomeOfReply ("macVersion:4.5.6"), "old 0");
    EXPECT_EQ (outcomeOfReply ("macVersion:4.5.6beta3"), "old 0");
    EXPECT_EQ (outcomeOfReply ("macVersion:4.5.7beta1"), "new 0");
    EXPECT_EQ (outcomeOfReply ("macVersion:4.4.9"), "old 0");
}

TEST (UpdateChecker, UnderstandsQuotedFields)
{
    EXPECT_EQ (outcomeOfReply ("text:\"a;macVersion:1.0.0;b\";macVersion:\"4.6.0\";macReleaseDate:\"12\""), "new 12");
}

TEST (UpdateChecker, TreatsAMalformedReplyAsNoUpdate)
{
    EXPECT_EQ (outcomeOfReply (""), "old 0");
    EXPECT_EQ (outcomeOfReply ("windowsVersion:9.9.9"), "old 0");
    EXPECT_EQ (outcomeOfReply ("macVersion:x.y.z;macReleaseDate:never"), "old 0");
    EXPECT_EQ (outcomeOfReply (std::string_view ("\0\xff\xfe\x80;macVersion:9.9.9", 21)), "old 0");
}

TEST (UpdateChecker, ReadsTheBeginningOfAnEndlessReply)
{
    EXPECT_EQ (outcomeOf ([] (Connection& c) { answerWithoutEnd (c, "macVersion:4.6.0;macReleaseDate:5;"); }), "new 5");

    // The version comes too late to be read.

    std::string late (70000, ';');
    late.append (newer);
    EXPECT_EQ (outcomeOf ([&late] (Connection& c) { answerWithoutEnd (c, late); }), "old 0");

    const auto log = changeLogOf ([] (Connection& c) { answerWithoutEnd (c, "New"); });
    EXPECT_EQ (log.length(), 1024 * 1024);
    EXPECT_TRUE (log.startsWith ("New "));
}

TEST (UpdateChecker, TreatsAReplyThatTricklesAsNoUpdate)
{
    EXPECT_EQ (outcomeOf (answerWithOneByteASecond, 500), "old 0");
    EXPECT_EQ (changeLogOf (answerWithOneByteASecond, 500), "");
}

TEST (UpdateChecker, FollowsFiveRedirects)
{
    EXPECT_EQ (outcomeOf (redirectTimes (5, newer)), "new 1763683200000");
    EXPECT_EQ (outcomeOf (redirectTimes (6, newer)), "old 0");
    EXPECT_EQ (outcomeOf (redirectTimes (1000, newer)), "old 0");
    EXPECT_EQ (changeLogOf (redirectTimes (6, "log")), "");
}

TEST (UpdateChecker, TreatsAnErrorPageAsNoUpdate)
{
    EXPECT_EQ (outcomeOfReply (newer, "404 Not Found"), "old 0");
    EXPECT_EQ (outcomeOfReply (newer, "500 Internal Server Error"), "old 0");
    EXPECT_EQ (changeLogOf (HttpServer::always (HttpServer::makeReply ("<html>404</html>", "404 Not Found"))), "");
    EXPECT_EQ (changeLogOf (
                   HttpServer::always (HttpServer::makeReply ("Sorry, the page you're looking for is not available"))),
               "");
}

TEST (UpdateChecker, TreatsABrokenConnectionAsNoUpdate)
{
    EXPECT_EQ (outcomeOf ([] (Connection& connection) { connection.reset(); }), "old 0");
    EXPECT_EQ (changeLogOf ([] (Connection& connection) { connection.reset(); }), "");
    EXPECT_EQ (outcomeOf (getDeadAddress()), "old 0");
}

TEST (UpdateChecker, KeepsWhatItKnowsWhenALaterCheckFails)
{
    HttpServer server (
        [numDone = 0] (Connection& connection) mutable
        {
            if (numDone++ == 0)
                connection.send (HttpServer::makeReply (newer));
            else
                connection.reset();
        });
    Check check (server.getAddress());
    ASSERT_TRUE (check.checkVersion());
    ASSERT_TRUE (check.checkVersion());
    EXPECT_TRUE (check.isNewer);
    EXPECT_EQ (check.releaseDate, 1763683200000);
}

TEST (UpdateChecker, ChecksOnceForAllWindowsThatAreOpenedTogether)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (newer)));
    Check first (server.getAddress()), second (server.getAddress());
    ASSERT_TRUE (first.checker->checkVersion());
    EXPECT_FALSE (first.checker->checkVersion());
    EXPECT_FALSE (second.checker->checkVersion());
    ASSERT_TRUE (pumpUntil ([&] { return first.numVersionReplies > 0; }));
    EXPECT_EQ (server.getRequests().size(), 1u);
    EXPECT_TRUE (second.checkVersion());
}

TEST (UpdateChecker, AWindowThatClosesLeavesTheCheckToTheNext)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (newer)));
    auto first = std::make_unique<Check> (server.getAddress());
    ASSERT_TRUE (first->checker->checkVersion());
    first.reset();

    Check second (server.getAddress());
    EXPECT_TRUE (second.checkVersion());
}

TEST (UpdateChecker, StartsTheRequestAfterAShortDelay)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (newer)));
    Check check (server.getAddress());
    const auto start = Clock::now();
    ASSERT_TRUE (check.checkVersion());
    EXPECT_GE (Clock::now() - start, std::chrono::milliseconds (240));
}

TEST (UpdateChecker, SendsNoRequestIfDestroyedBefore)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (newer)));
    {
        Check check (server.getAddress());
        ASSERT_TRUE (check.checker->checkVersion());
    }
    pumpPending();
    EXPECT_TRUE (server.getRequests().empty());
}

TEST (UpdateChecker, IsDestroyedAtOnceWhileAServerNeverAnswers)
{
    HttpServer silent ([] (Connection& connection) { connection.wait (60000); });
    auto shortest = Clock::duration::max();

    // The shortest of several times counts, since a busy machine can delay any one of them.
    for (size_t i = 1; i <= 5; ++i)
    {
        Check check (silent.getAddress(), 60000);
        const auto opened = Clock::now();
        ASSERT_TRUE (check.checker->checkVersion());
        auto taken = Clock::now() - opened;
        ASSERT_TRUE (pumpUntil ([&] { return silent.getRequests().size() == i; }));

        const auto closed = Clock::now();
        check.checker.reset();
        taken += Clock::now() - closed;
        shortest = std::min (shortest, taken);
    }

    RecordProperty ("milliseconds", int (shortest / std::chrono::milliseconds (1)));
    EXPECT_LT (shortest, std::chrono::seconds (5)) << "the server keeps the connection open for a minute";
}

} // namespace mk::pluginCore::test
