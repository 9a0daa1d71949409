// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** What a single request gives: a page, or the address to go on at, or nothing at all. */
struct HttpReply
{
    std::optional<juce::MemoryBlock> body;
    juce::String location; /**< as the server sends it, so perhaps relative to the page; empty for no redirect */
};

/** The whole address that a page's redirect leads to. Empty for one that is not followed: only http and https
    are, and once the way is secure only https. Any thread; any text. */
[[nodiscard]] juce::String resolveRedirect (const juce::String& page, const juce::String& location);

/** Gets a page over HttpRequest::maxRedirects redirects at most, within the request's time limit. The systems'
    own ways of following differ in where they let a server send the user, so this is the one way for all of
    them, and getOnce must follow nothing by itself. */
[[nodiscard]] std::optional<juce::MemoryBlock>
    followRedirects (const HttpRequest& request, const std::function<HttpReply (const HttpRequest&)>& getOnce);

} // namespace mk::pluginCore
