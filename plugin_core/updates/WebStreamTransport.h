// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Redirects.h"

namespace mk::pluginCore
{

/** Gets pages through JUCE's juce::WebInputStream, which uses the system's HTTP client. */
class WebStreamTransport final : public HttpTransport
{
public:
    [[nodiscard]] std::optional<juce::MemoryBlock> get (const HttpRequest& request,
                                                        const std::function<bool()>& shouldStop) override;
    void cancel() override;

private:
    class Registration;

    [[nodiscard]] HttpReply getOnce (const HttpRequest& request, const std::function<bool()>& shouldStop);

    juce::CriticalSection lock;
    juce::WebInputStream* current = nullptr; // guarded by the lock
    bool cancelled = false;                  // guarded by the lock

    JUCE_LEAK_DETECTOR (WebStreamTransport)
};

} // namespace mk::pluginCore
