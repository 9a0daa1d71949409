// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** Gets pages through libcurl, if the system has it. Of redirects, none leads from https to http, nor to
    anything that is neither. Linux only. */
class CurlTransport final : public HttpTransport
{
public:
    [[nodiscard]] std::optional<juce::MemoryBlock> get (const HttpRequest& request,
                                                        const std::function<bool()>& shouldStop) override;
};

} // namespace mk::pluginCore
