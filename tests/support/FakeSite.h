// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/updates/UpdateEnvironment.h"

#include <vector>

namespace mk::orlo::test
{

/** The vendor's site, the clock and the browser, controlled by a test. Outlives the windows that use it. */
class FakeSite
{
public:
    juce::int64 now = 1763683200000;
    std::vector<juce::URL> openedPages;

    /** Sets what the site answers from now on; std::nullopt makes the request fail. */
    void setReplies (std::optional<juce::String> version, std::optional<juce::String> changeLog)
    {
        const juce::ScopedLock guard (lock);
        versionReply = std::move (version);
        changeLogReply = std::move (changeLog);
    }

    /** How many requests there were for the page. */
    [[nodiscard]] int count (const juce::String& page) const
    {
        const juce::ScopedLock guard (lock);
        auto number = 0;

        for (const auto& url : requests)
            number += url.endsWith ("/" + page) ? 1 : 0;

        return number;
    }

    [[nodiscard]] pluginCore::UpdateEnvironment makeEnvironment()
    {
        return { [this] { return std::make_unique<Transport> (*this); },
                 [this] { return now; },
                 [this] (const juce::URL& page) { openedPages.push_back (page); } };
    }

private:
    class Transport final : public pluginCore::HttpTransport
    {
    public:
        explicit Transport (FakeSite& siteToAsk) : site (siteToAsk) {}

        std::optional<juce::MemoryBlock> get (const pluginCore::HttpRequest& request,
                                              const std::function<bool()>&) override
        {
            const juce::ScopedLock guard (site.lock);
            site.requests.add (request.url);
            const auto& reply = request.url.contains ("changeLog") ? site.changeLogReply : site.versionReply;

            if (! reply.has_value())
                return std::nullopt;

            return juce::MemoryBlock (reply->toRawUTF8(), reply->getNumBytesAsUTF8());
        }

    private:
        FakeSite& site;
    };

    // Guarded by the lock.
    std::optional<juce::String> versionReply, changeLogReply;
    juce::StringArray requests;
    juce::CriticalSection lock;
};

} // namespace mk::orlo::test
