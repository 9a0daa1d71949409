// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Redirects.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto schemeMark = "://";

[[nodiscard]] juce::String getScheme (const juce::String& url)
{
    return url.upToFirstOccurrenceOf (":", false, false).toLowerCase();
}

[[nodiscard]] bool isWebAddress (const juce::String& url)
{
    const auto scheme = getScheme (url);
    return (scheme == "http" || scheme == "https") && url.substring (scheme.length()).startsWith (schemeMark);
}

/** Whether the text starts with a scheme, so that it is an absolute URL and not a path. */
[[nodiscard]] bool hasScheme (const juce::String& location)
{
    const auto colon = location.indexOfChar (':');
    const auto firstOfPath = location.indexOfAnyOf ("/?#");
    return colon > 0 && (firstOfPath < 0 || colon < firstOfPath);
}

/** "http://host:port" of "http://host:port/path?query". */
[[nodiscard]] juce::String getOrigin (const juce::String& url)
{
    const auto start = url.indexOf (schemeMark) + juce::String (schemeMark).length();
    const auto end = url.substring (start).indexOfAnyOf ("/?#");
    return end < 0 ? url : url.substring (0, start + end);
}

[[nodiscard]] juce::String makeAbsolute (const juce::String& page, const juce::String& location)
{
    if (hasScheme (location))
        return location;

    if (location.startsWith ("//"))
        return getScheme (page) + ":" + location;

    const auto origin = getOrigin (page);

    if (location.startsWithChar ('/'))
        return origin + location;

    const auto path = page.substring (origin.length())
                          .upToFirstOccurrenceOf ("#", false, false)
                          .upToFirstOccurrenceOf ("?", false, false);

    if (location.startsWithChar ('?'))
        return origin + path + location;

    return origin + "/" + path.upToLastOccurrenceOf ("/", true, false).trimCharactersAtStart ("/") + location;
}
} // namespace

juce::String resolveRedirect (const juce::String& page, const juce::String& location)
{
    const auto next = makeAbsolute (page, location.trim());
    const auto leavesSecurity = getScheme (page) == "https" && getScheme (next) != "https";
    return isWebAddress (next) && ! leavesSecurity ? next : juce::String();
}

std::optional<juce::MemoryBlock> followRedirects (const HttpRequest& request,
                                                  const std::function<HttpReply (const HttpRequest&)>& getOnce)
{
    const auto deadline = juce::Time::getMillisecondCounterHiRes() + double (request.timeLimitMs);
    auto next = request;

    for (int numRedirects = 0; numRedirects <= HttpRequest::maxRedirects; ++numRedirects)
    {
        next.timeLimitMs = int (deadline - juce::Time::getMillisecondCounterHiRes());

        if (! isWebAddress (next.url) || next.timeLimitMs < 1)
            return std::nullopt;

        auto reply = getOnce (next);

        if (reply.location.isEmpty())
            return std::move (reply.body);

        next.url = resolveRedirect (next.url, reply.location);
    }

    return std::nullopt;
}

} // namespace mk::pluginCore
