// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <functional>
#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** A GET request. */
struct HttpRequest
{
    juce::String url; /**< http or https */
    juce::String userAgent;
    size_t maxBytes = 0;     /**< the rest of the body is not read */
    int timeLimitMs = 30000; /**< for the whole request, including redirects */

    static constexpr int maxRedirects = 5;
};

/** Gets pages from the web. One request at a time. */
class HttpTransport
{
public:
    virtual ~HttpTransport() = default;

    /** [any thread but the message thread; blocks] The body of the page, cut to maxBytes. Nothing if the
        connection fails, breaks or times out, if there are too many redirects, if the status is not 2xx, or if
        shouldStop returns true, which is called every few milliseconds. */
    [[nodiscard]] virtual std::optional<juce::MemoryBlock> get (const HttpRequest& request,
                                                                const std::function<bool()>& shouldStop) = 0;

    /** [any thread] Ends the present request where the system blocks and shouldStop cannot be called. All
        later requests of a cancelled transport fail. */
    virtual void cancel() {}

    /** The transport for this system. Cheap: nothing is loaded before the first request. */
    [[nodiscard]] static std::unique_ptr<HttpTransport> makeForThisSystem();
};

} // namespace mk::pluginCore
