// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** The result of a single request: a page, the address of a redirect, or nothing. */
struct HttpReply
{
    std::optional<juce::MemoryBlock> body;
    juce::String location; /**< as the server sends it, possibly relative to the page; empty without a redirect */
};

/** The absolute address of a page's redirect. Empty if the redirect must not be followed: only http and https
    are allowed, and from an https page only https. Any thread; any text. */
[[nodiscard]] juce::String resolveRedirect (const juce::String& page, const juce::String& location);

/** Gets a page, following HttpRequest::maxRedirects redirects at most, within the request's time limit. The
    systems differ in which redirects they follow by themselves, so all of them use this function, and getOnce
    must not follow any redirect. */
[[nodiscard]] std::optional<juce::MemoryBlock>
    followRedirects (const HttpRequest& request, const std::function<HttpReply (const HttpRequest&)>& getOnce);

} // namespace mk::pluginCore
