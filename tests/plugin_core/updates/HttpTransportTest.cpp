// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/HttpTransport.h"
#include "plugin_core/updates/WebStreamTransport.h"

#include "tests/support/HttpServer.h"

#include <gtest/gtest.h>

#include <chrono>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::getDeadAddress;
using orlo::test::HttpServer;
using Connection = HttpServer::Connection;

[[nodiscard]] HttpRequest makeRequest (const juce::String& url) { return { url, "Test/1.0 (here)", 1000, 5000 }; }

[[nodiscard]] juce::String toText (const std::optional<juce::MemoryBlock>& body)
{
    return body.has_value() ? body->toString() : juce::String ("(nothing)");
}

[[nodiscard]] juce::String getText (const HttpRequest& request)
{
    return toText (HttpTransport::makeForThisSystem()->get (request, [] { return false; }));
}

/** Redirects from "/5" to "/4" and so on, and answers at "/0". */
void countDown (Connection& connection)
{
    const auto number = connection.getPath().substring (1).getIntValue();
    connection.send (
        number == 0 ? HttpServer::makeReply ("arrived")
                    : HttpServer::makeReply ("on", "302 Found", "Location: /" + std::to_string (number - 1) + "\r\n"));
}

TEST (HttpTransport, GetsAPageAndSendsItsUserAgent)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply ("hello")));
    EXPECT_EQ (getText (makeRequest (server.getAddress() + "/a/page.php")), "hello");

    const auto requests = server.getRequests();
    ASSERT_EQ (requests.size(), 1u);
    EXPECT_TRUE (requests[0].startsWith ("GET /a/page.php HTTP/1.1\r\n")) << requests[0];
    EXPECT_TRUE (requests[0].contains ("\r\nUser-Agent: Test/1.0 (here)\r\n")) << requests[0];
}

TEST (HttpTransport, GetsAnEmptyPage)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply ("")));
    EXPECT_EQ (getText (makeRequest (server.getAddress())), "");
}

TEST (HttpTransport, GetsAnEndlessBodyUpToItsLimit)
{
    HttpServer server (
        [] (Connection& connection)
        {
            connection.send ("HTTP/1.1 200 OK\r\n\r\n");

            while (connection.send (std::string (777, 'x')))
            {
            }
        });
    EXPECT_EQ (getText (makeRequest (server.getAddress())), juce::String::repeatedString ("x", 1000));
}

TEST (HttpTransport, GetsABodyThatJustFits)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (std::string (1000, 'x'))));
    EXPECT_EQ (getText (makeRequest (server.getAddress())).length(), 1000);
}

TEST (HttpTransport, FollowsFiveRedirectsAndNoSixth)
{
    HttpServer server (countDown);
    EXPECT_EQ (getText (makeRequest (server.getAddress() + "/5")), "arrived");
    EXPECT_EQ (getText (makeRequest (server.getAddress() + "/6")), "(nothing)");
}

TEST (HttpTransport, GivesUpOnARedirectToItself)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply ("on", "302 Found", "Location: /\r\n")));
    EXPECT_EQ (getText (makeRequest (server.getAddress() + "/")), "(nothing)");
    EXPECT_EQ (server.getRequests().size(), 6u);
}

TEST (HttpTransport, FollowsNoRedirectToAFile)
{
    HttpServer server (
        HttpServer::always (HttpServer::makeReply ("on", "302 Found", "Location: file:///etc/hostname\r\n")));
    EXPECT_EQ (getText (makeRequest (server.getAddress())), "(nothing)");
}

TEST (HttpTransport, AcceptsOnlySuccessAsAnAnswer)
{
    for (const auto* const status : { "404 Not Found", "500 Internal Server Error", "304 Not Modified" })
    {
        HttpServer server (HttpServer::always (HttpServer::makeReply ("sorry", status)));
        EXPECT_EQ (getText (makeRequest (server.getAddress())), "(nothing)") << status;
    }
}

TEST (HttpTransport, ReturnsNothingIfTheConnectionBreaks)
{
    HttpServer atOnce ([] (Connection& connection) { connection.reset(); });
    EXPECT_EQ (getText (makeRequest (atOnce.getAddress())), "(nothing)");

    HttpServer inTheMiddle (
        [] (Connection& connection)
        {
            connection.send ("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf of");
            connection.reset();
        });
    EXPECT_EQ (getText (makeRequest (inTheMiddle.getAddress())), "(nothing)");
}

TEST (HttpTransport, RefusesAReplyThatIsNotHttp)
{
    HttpServer server (HttpServer::always ("\x16\x03\x01 rubbish \xff\xfe\r\n\r\n"));
    EXPECT_EQ (getText (makeRequest (server.getAddress())), "(nothing)");
}

TEST (HttpTransport, GetsNothingWhereThereIsNoServer)
{
    EXPECT_EQ (getText (makeRequest (getDeadAddress())), "(nothing)");
    EXPECT_EQ (getText (makeRequest ({})), "(nothing)");
    EXPECT_EQ (getText (makeRequest ("file:///etc/hostname")), "(nothing)");
}

TEST (HttpTransport, GivesUpAtTheTimeLimit)
{
    HttpServer drop (
        [] (Connection& connection)
        {
            connection.send ("HTTP/1.1 200 OK\r\n\r\n");

            while (connection.wait (1000) && connection.send ("x"))
            {
            }
        });
    auto request = makeRequest (drop.getAddress());
    request.timeLimitMs = 300;
    EXPECT_EQ (getText (request), "(nothing)");
}

TEST (HttpTransport, GivesUpOnEndlessHeaders)
{
    std::atomic<int> numSent { 0 };
    HttpServer server (
        [&numSent] (Connection& connection)
        {
            connection.send ("HTTP/1.1 200 OK\r\n");

            while (connection.send ("X-Header: " + std::string (90, 'x') + "\r\n"))
                numSent.fetch_add (1, std::memory_order_relaxed);
        });
    EXPECT_EQ (getText (makeRequest (server.getAddress())), "(nothing)");

    // The sockets' buffers hold more than is read.
    EXPECT_LT (numSent.load (std::memory_order_relaxed), 200000);
}

TEST (HttpTransport, GivesUpOnARedirectWithAnEndlessBody)
{
    HttpServer server (
        [] (Connection& connection)
        {
            connection.send ("HTTP/1.1 302 Found\r\nLocation: /on\r\n\r\n");

            while (connection.send (std::string (777, 'x')))
            {
            }
        });
    auto request = makeRequest (server.getAddress());
    request.timeLimitMs = 500;
    EXPECT_EQ (getText (request), "(nothing)");
}

TEST (HttpTransport, StopsWhenAskedTo)
{
    HttpServer silent ([] (Connection& connection) { connection.wait (60000); });
    const auto transport = HttpTransport::makeForThisSystem();
    const auto start = std::chrono::steady_clock::now();
    const auto shouldStop = [start]
    { return std::chrono::steady_clock::now() - start > std::chrono::milliseconds (50); };
    EXPECT_FALSE (transport->get (makeRequest (silent.getAddress()), shouldStop).has_value());
    EXPECT_LT (std::chrono::steady_clock::now() - start, std::chrono::seconds (2));
}

//==============================================================================
TEST (WebStreamTransport, GetsAPageCutToItsLimit)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply (std::string (5000, 'x'))));
    WebStreamTransport transport;
    const auto body = transport.get (makeRequest (server.getAddress() + "/page"), [] { return false; });
    EXPECT_EQ (toText (body), juce::String::repeatedString ("x", 1000));
    EXPECT_TRUE (server.getRequests().at (0).containsIgnoreCase ("User-Agent: Test/1.0 (here)"));
}

TEST (WebStreamTransport, AcceptsOnlySuccessAsAnAnswer)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply ("sorry", "404 Not Found")));
    WebStreamTransport transport;
    EXPECT_FALSE (transport.get (makeRequest (server.getAddress()), [] { return false; }).has_value());
}

TEST (WebStreamTransport, FollowsFiveRedirectsAndNoSixth)
{
    HttpServer server (countDown);
    WebStreamTransport transport;
    const auto getFrom = [&] (const juce::String& path)
    { return toText (transport.get (makeRequest (server.getAddress() + path), [] { return false; })); };
    EXPECT_EQ (getFrom ("/5"), "arrived");
    EXPECT_EQ (getFrom ("/6"), "(nothing)");
}

TEST (WebStreamTransport, FollowsNoRedirectToAnotherProtocol)
{
    // JUCE treats an address without an HTTP scheme as a path on the same server, and requests that.
    for (const auto* const target : { "file:///etc/hostname", "ftp://127.0.0.1/x", "javascript:x" })
    {
        HttpServer server (HttpServer::always (
            HttpServer::makeReply ("on", "302 Found", "Location: " + std::string (target) + "\r\n")));
        WebStreamTransport transport;
        EXPECT_FALSE (transport.get (makeRequest (server.getAddress()), [] { return false; }).has_value()) << target;
        EXPECT_EQ (server.getRequests().size(), 1u) << target;
    }
}

TEST (WebStreamTransport, RefusesAnAddressThatIsNotHttp)
{
    WebStreamTransport transport;
    EXPECT_FALSE (transport.get (makeRequest ("file:///etc/hostname"), [] { return false; }).has_value());
}

TEST (WebStreamTransport, GetsNothingOnceItWasCancelled)
{
    HttpServer server (HttpServer::always (HttpServer::makeReply ("hello")));
    WebStreamTransport transport;
    transport.cancel();
    EXPECT_FALSE (transport.get (makeRequest (server.getAddress()), [] { return false; }).has_value());
}

} // namespace
} // namespace mk::pluginCore::test
