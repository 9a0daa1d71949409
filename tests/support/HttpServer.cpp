// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace mk::orlo::test
{
namespace
{
constexpr int stepMs = 2;

/** A socket on a free port of this machine. */
[[nodiscard]] int bindSocket (int& port)
{
    const auto handle = ::socket (AF_INET, SOCK_STREAM, 0);
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl (INADDR_LOOPBACK);
    socklen_t size = sizeof (address);
    auto* const plainAddress = reinterpret_cast<sockaddr*> (&address);

    if (handle < 0 || bind (handle, plainAddress, size) != 0 || getsockname (handle, plainAddress, &size) != 0)
        throw std::runtime_error ("no socket");

    port = ntohs (address.sin_port);
    return handle;
}

[[nodiscard]] bool isReady (int socket, short events, int milliseconds)
{
    pollfd query { socket, events, 0 };
    return poll (&query, 1, milliseconds) > 0;
}
} // namespace

juce::String HttpServer::Connection::getPath() const
{
    return request.fromFirstOccurrenceOf (" ", false, false).upToFirstOccurrenceOf (" ", false, false);
}

bool HttpServer::Connection::send (std::string_view bytes)
{
    while (! bytes.empty())
    {
        if (stopping.load (std::memory_order_acquire))
            return false;

        if (! isReady (socket, POLLOUT, stepMs))
            continue;

        const auto numSent = ::send (socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);

        if (numSent < 0)
            return false;

        bytes.remove_prefix (size_t (numSent));
    }

    return true;
}

bool HttpServer::Connection::wait (int milliseconds)
{
    const auto end = juce::Time::getMillisecondCounterHiRes() + milliseconds;

    while (juce::Time::getMillisecondCounterHiRes() < end)
    {
        // The client sends nothing more, so a readable socket means that it has closed.
        if (stopping.load (std::memory_order_acquire) || isReady (socket, POLLIN, stepMs))
            return false;
    }

    return true;
}

void HttpServer::Connection::reset()
{
    const linger noFarewell { 1, 0 };
    setsockopt (socket, SOL_SOCKET, SO_LINGER, &noFarewell, sizeof (noFarewell));
}

void HttpServer::Connection::readRequest()
{
    std::string head;

    while (head.find ("\r\n\r\n") == std::string::npos && ! stopping.load (std::memory_order_acquire))
    {
        if (! isReady (socket, POLLIN, stepMs))
            continue;

        char buffer[1024];
        const auto numRead = recv (socket, buffer, sizeof (buffer), 0);

        if (numRead <= 0)
            break;

        head.append (buffer, size_t (numRead));
    }

    request = juce::String (head);
}

//==============================================================================
HttpServer::HttpServer (Handler handlerToUse) : handler (std::move (handlerToUse)), listener (bindSocket (port))
{
    if (listen (listener, 8) != 0)
        throw std::runtime_error ("cannot listen");

    thread = std::thread ([this] { serve(); });
}

HttpServer::~HttpServer()
{
    stopping.store (true, std::memory_order_release);
    thread.join();
    close (listener);
}

void HttpServer::serve()
{
    while (! stopping.load (std::memory_order_acquire))
    {
        if (! isReady (listener, POLLIN, stepMs))
            continue;

        const auto socket = accept (listener, nullptr, nullptr);

        if (socket < 0)
            continue;

        Connection connection (socket, stopping);
        connection.readRequest();

        {
            const juce::ScopedLock guard (lock);
            requests.push_back (connection.getRequest());
        }

        handler (connection);
        close (socket);
    }
}

std::vector<juce::String> HttpServer::getRequests() const
{
    const juce::ScopedLock guard (lock);
    return requests;
}

std::string HttpServer::makeReply (std::string_view body, std::string_view status, std::string_view headers)
{
    std::string reply ("HTTP/1.1 ");
    reply.append (status).append ("\r\nConnection: close\r\nContent-Length: ");
    reply.append (std::to_string (body.size())).append ("\r\n").append (headers).append ("\r\n").append (body);
    return reply;
}

HttpServer::Handler HttpServer::always (std::string reply)
{
    return [reply = std::move (reply)] (Connection& connection) { connection.send (reply); };
}

juce::String getDeadAddress()
{
    auto port = 0;
    close (bindSocket (port));
    return "http://127.0.0.1:" + juce::String (port);
}

} // namespace mk::orlo::test
