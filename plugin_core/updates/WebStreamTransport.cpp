// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WebStreamTransport.h"

#include <array>

namespace mk::pluginCore
{

/** Registers a stream while this object exists, so that cancel() can end it. */
class WebStreamTransport::Registration
{
public:
    Registration (WebStreamTransport& ownerToUse, juce::WebInputStream& stream) : owner (ownerToUse)
    {
        const juce::ScopedLock guard (owner.lock);
        owner.current = &stream;

        if (owner.cancelled)
            stream.cancel();
    }

    ~Registration()
    {
        const juce::ScopedLock guard (owner.lock);
        owner.current = nullptr;
    }

private:
    WebStreamTransport& owner;

    JUCE_DECLARE_NON_COPYABLE (Registration)
};

std::optional<juce::MemoryBlock> WebStreamTransport::get (const HttpRequest& request,
                                                          const std::function<bool()>& shouldStop)
{
    return followRedirects (request, [&] (const HttpRequest& single) { return getOnce (single, shouldStop); });
}

HttpReply WebStreamTransport::getOnce (const HttpRequest& request, const std::function<bool()>& shouldStop)
{
    const auto deadline = juce::Time::getMillisecondCounterHiRes() + double (request.timeLimitMs);

    juce::WebInputStream stream (juce::URL (request.url), false);
    stream.withExtraHeaders ("User-Agent: " + request.userAgent + "\r\n")
        .withConnectionTimeout (request.timeLimitMs)
        .withNumRedirectsToFollow (0);
    const Registration registration (*this, stream);

    if (! stream.connect (nullptr) || stream.isError())
        return {};

    if (stream.getStatusCode() / 100 == 3)
        return { std::nullopt, stream.getResponseHeaders()["Location"] };

    if (stream.getStatusCode() / 100 != 2)
        return {};

    juce::MemoryBlock body;
    std::array<char, 4096> chunk {};

    while (body.getSize() < request.maxBytes && ! stream.isExhausted())
    {
        if (shouldStop() || juce::Time::getMillisecondCounterHiRes() > deadline)
            return {};

        const auto wanted = std::min (chunk.size(), request.maxBytes - body.getSize());
        const auto numRead = stream.read (chunk.data(), int (wanted));

        if (numRead < 0)
            return {};

        if (numRead == 0)
            break;

        body.append (chunk.data(), size_t (numRead));
    }

    return stream.isError() ? HttpReply() : HttpReply { body, {} };
}

void WebStreamTransport::cancel()
{
    const juce::ScopedLock guard (lock);
    cancelled = true;

    if (current != nullptr)
        current->cancel();
}

} // namespace mk::pluginCore
