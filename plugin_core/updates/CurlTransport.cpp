// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CurlTransport.h"

#include "CurlLibrary.h"
#include "Redirects.h"

#include <csignal>
#include <ctime>

namespace mk::pluginCore
{
namespace
{
// The longest wait between two checks of shouldStop.
constexpr int pollMs = 10;

constexpr size_t maxHeaderBytes = size_t { 64 } * 1024;

/** Blocks SIGPIPE: writing to a broken connection would otherwise end the host's process. */
class ScopedPipeSignalBlock
{
public:
    ScopedPipeSignalBlock()
    {
        sigemptyset (&pipeSignal);
        sigaddset (&pipeSignal, SIGPIPE);
        pthread_sigmask (SIG_BLOCK, &pipeSignal, &formerMask);
    }

    ~ScopedPipeSignalBlock()
    {
        if (sigismember (&formerMask, SIGPIPE) == 0)
        {
            const timespec noTime {};
            static_cast<void> (sigtimedwait (&pipeSignal, nullptr, &noTime));
        }

        pthread_sigmask (SIG_SETMASK, &formerMask, nullptr);
    }

private:
    sigset_t pipeSignal {}, formerMask {};

    JUCE_DECLARE_NON_COPYABLE (ScopedPipeSignalBlock)
};

/** The data received so far. */
struct Reply
{
    juce::MemoryBlock body;
    size_t maxBytes = 0;
    size_t numHeaderBytes = 0;
    bool isCut = false;
};

/** libcurl's write callback: returning any number other than numBytes ends the transfer. */
size_t receiveBody (const char* data, size_t, size_t numBytes, void* context)
{
    auto& reply = *static_cast<Reply*> (context);
    const auto room = reply.maxBytes - reply.body.getSize();
    reply.body.append (data, std::min (room, numBytes));
    reply.isCut = numBytes > room;
    return reply.isCut ? 0 : numBytes;
}

/** libcurl's header callback. libcurl stores all headers, so without a limit they could fill the memory. */
size_t receiveHeader (const char*, size_t, size_t numBytes, void* context)
{
    auto& reply = *static_cast<Reply*> (context);
    reply.numHeaderBytes += numBytes;
    return reply.numHeaderBytes > maxHeaderBytes ? 0 : numBytes;
}

/** One request. */
class Transfer
{
public:
    Transfer (const curl::Library& libraryToUse, const HttpRequest& request)
        : library (libraryToUse), easy (library.easyInit()), multi (library.multiInit())
    {
        if (easy != nullptr && multi != nullptr)
        {
            setOptions (request);
            isAdded = library.multiAddHandle (multi, easy) == curl::resultOk;
        }
    }

    ~Transfer()
    {
        if (isAdded)
            library.multiRemoveHandle (multi, easy);

        library.easyCleanup (easy);

        if (multi != nullptr)
            library.multiCleanup (multi);
    }

    [[nodiscard]] HttpReply run (const std::function<bool()>& shouldStop)
    {
        auto numRunning = 1;

        while (isAdded && ! shouldStop())
        {
            if (library.multiPerform (multi, &numRunning) != curl::resultOk)
                return {};

            if (numRunning == 0)
                return isComplete() ? makeReply() : HttpReply();

            library.multiPoll (multi, nullptr, 0, pollMs, nullptr);
        }

        return {};
    }

private:
    void setOptions (const HttpRequest& request)
    {
        namespace option = curl::option;

        reply.maxBytes = request.maxBytes;
        const auto set = [this] (int which, auto value)
        { static_cast<void> (library.easySetOption (easy, which, value)); };

        set (option::url, request.url.toRawUTF8());
        set (option::userAgent, request.userAgent.toRawUTF8());
        set (option::timeoutMs, long (request.timeLimitMs));
        set (option::protocols, curl::protocolHttp | curl::protocolHttps);
        set (option::noProgressMeter, 1L);
        set (option::writeFunction, &receiveBody);
        set (option::writeData, static_cast<void*> (&reply));
        set (option::headerFunction, &receiveHeader);
        set (option::headerData, static_cast<void*> (&reply));

        // The process's signals belong to the host, and cancelling must not wait for a name server.
        set (option::noSignal, 1L);
        set (option::quickExit, 1L);
    }

    /** Whether the whole body has been received, or as much of it as was requested. */
    [[nodiscard]] bool isComplete() const
    {
        auto numLeft = 0;
        const auto* const message = library.multiInfoRead (multi, &numLeft);

        if (message == nullptr || message->kind != curl::messageDone)
            return false;

        const auto result = message->data.result;
        return result == curl::resultOk || (result == curl::resultWriteError && reply.isCut);
    }

    [[nodiscard]] HttpReply makeReply() const
    {
        auto status = 0L;
        library.easyGetInfo (easy, curl::infoResponseCode, &status);

        if (status / 100 == 2)
            return { reply.body, {} };

        // location stays null if the reply is not a redirect.
        const char* location = nullptr;
        library.easyGetInfo (easy, curl::infoRedirectUrl, &location);
        return { std::nullopt, juce::String::fromUTF8 (location != nullptr ? location : "") };
    }

    const curl::Library& library;
    curl::Easy* const easy;
    curl::Multi* const multi;
    Reply reply;
    bool isAdded = false;

    JUCE_DECLARE_NON_COPYABLE (Transfer)
};
} // namespace

std::optional<juce::MemoryBlock> CurlTransport::get (const HttpRequest& request,
                                                     const std::function<bool()>& shouldStop)
{
    const auto* const library = curl::Library::get();

    if (library == nullptr)
        return std::nullopt;

    const ScopedPipeSignalBlock pipeSignalBlock;
    return followRedirects (request,
                            [&] (const HttpRequest& single) { return Transfer (*library, single).run (shouldStop); });
}

} // namespace mk::pluginCore
