// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <functional>
#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** What to get. */
struct HttpRequest
{
    juce::String url; /**< http or https */
    juce::String userAgent;
    size_t maxBytes = 0;     /**< what follows of the body is left unread */
    int timeLimitMs = 30000; /**< for all of it, redirects included */

    static constexpr int maxRedirects = 5;
};

/** Gets pages from the web. One request at a time. */
class HttpTransport
{
public:
    virtual ~HttpTransport() = default;

    /** [any thread but the message thread; blocks] The body of the page, cut to maxBytes. Nothing if there is
        no connection, if it breaks or takes too long, if there are too many redirects, if the status is not
        one of success, or if shouldStop, which is asked every few milliseconds, says so. */
    [[nodiscard]] virtual std::optional<juce::MemoryBlock> get (const HttpRequest& request,
                                                                const std::function<bool()>& shouldStop) = 0;

    /** [any thread] Ends the request under way, where shouldStop cannot be asked while the system blocks. A
        transport that was cancelled gets nothing any more. */
    virtual void cancel() {}

    /** The one for this system. Cheap: nothing is loaded before the first request. */
    [[nodiscard]] static std::unique_ptr<HttpTransport> makeForThisSystem();
};

} // namespace mk::pluginCore
