// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace mk::orlo::test
{

/** A web server on 127.0.0.1 that answers as badly as a test wants. One connection at a time. */
class HttpServer
{
public:
    /** One request, until its handler returns. */
    class Connection
    {
    public:
        /** The head of the request as it came. */
        [[nodiscard]] const juce::String& getRequest() const noexcept { return request; }

        /** The path that was asked for. */
        [[nodiscard]] juce::String getPath() const;

        /** False once the client has closed the connection or the test has ended. */
        bool send (std::string_view bytes);

        /** Waits. False, before the time is over, if the client closes the connection or the test ends. */
        bool wait (int milliseconds);

        /** Breaks the connection instead of closing it. */
        void reset();

    private:
        friend class HttpServer;

        Connection (int socketToUse, const std::atomic<bool>& stopFlag) : socket (socketToUse), stopping (stopFlag) {}

        void readRequest();

        const int socket;
        const std::atomic<bool>& stopping;
        juce::String request;
    };

    using Handler = std::function<void (Connection&)>;

    /** Runs the handler, on a thread of the server, for each request. */
    explicit HttpServer (Handler handler);
    ~HttpServer();

    [[nodiscard]] juce::String getAddress() const { return "http://127.0.0.1:" + juce::String (port); }

    /** The heads of all requests so far. Any thread. */
    [[nodiscard]] std::vector<juce::String> getRequests() const;

    /** A complete reply. */
    [[nodiscard]] static std::string
        makeReply (std::string_view body, std::string_view status = "200 OK", std::string_view headers = {});

    /** A handler that gives this reply to everything. */
    [[nodiscard]] static Handler always (std::string reply);

private:
    void serve();

    const Handler handler;
    int port = 0;
    const int listener;
    std::atomic<bool> stopping { false }; // set by the owner, read by the server's thread
    mutable juce::CriticalSection lock;
    std::vector<juce::String> requests; // guarded by the lock
    std::thread thread;

    JUCE_DECLARE_NON_COPYABLE (HttpServer)
};

/** An address on this machine on which no server listens. */
[[nodiscard]] juce::String getDeadAddress();

} // namespace mk::orlo::test
