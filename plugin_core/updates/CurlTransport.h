// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** Gets pages through libcurl, if the system has it. Redirects from https to http, or to any other
    scheme, are not followed. Linux only. */
class CurlTransport final : public HttpTransport
{
public:
    [[nodiscard]] std::optional<juce::MemoryBlock> get (const HttpRequest& request,
                                                        const std::function<bool()>& shouldStop) override;
};

} // namespace mk::pluginCore
