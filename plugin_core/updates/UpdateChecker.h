// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"
#include "UpdateReplies.h"

#include <juce_events/juce_events.h>

namespace mk::pluginCore
{

class PluginProcessor;

/** Asks the vendor's site for the latest version, and for what is new in it, on a thread that lives for one
    request. Whatever goes wrong counts as no news. [message thread] */
class UpdateChecker final : public juce::Thread, public juce::AsyncUpdater
{
public:
    /** Called on the message thread. */
    class Listener
    {
    public:
        virtual ~Listener() = default;

        /** A check has ended, with or without an answer; without one there is no newer version. The date is
            in milliseconds since 1970. */
        virtual void versionInfoReceived (UpdateChecker&, bool newVersionAvailable, juce::int64 latestReleaseDate) = 0;

        /** The change log has come; empty if it has not. */
        virtual void changeLogReceived (UpdateChecker&, const juce::String& text) = 0;
    };

    UpdateChecker (const PluginProcessor& processor, std::unique_ptr<HttpTransport> transport);

    /** Ends a request under way. */
    ~UpdateChecker() override;

    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

    /** The folder of the site that the pages lie in. Not while a request is under way. */
    void setBaseUrl (juce::URL url) { baseUrl = std::move (url); }

    /** How long one request may take. Not while one is under way. */
    void setTimeLimit (int milliseconds) noexcept { timeLimitMs = milliseconds; }

    /** Starts a check. False, with nothing started, if this process has one under way already: windows that
        are opened together ask once. */
    bool checkVersion();

    /** Starts to fetch the change log. A request that has just ended is given 50 ms to leave its thread. False,
        with nothing started, if it takes longer. */
    bool requestChangeLog();

private:
    void run() override;
    void handleAsyncUpdate() override;
    [[nodiscard]] bool waitBeforeRequest() const;
    void fetchVersion();
    void fetchLog();
    [[nodiscard]] std::optional<juce::String> fetchPage (const juce::String& page, size_t maxBytes);
    void releaseClaim() noexcept;

    const juce::String userAgent;
    const VersionNumber currentVersion;
    const std::unique_ptr<HttpTransport> transport;
    juce::ListenerList<Listener> listeners;

    // Set while no request is under way.
    juce::URL baseUrl;
    int timeLimitMs;
    bool fetchChangeLog = false;
    bool holdsClaim = false;

    // Written by the thread, read on the message thread once the thread has told it.
    updateReplies::LatestVersion latest;
    bool newVersionAvailable = false;
    juce::String changeLog;

    JUCE_DECLARE_WEAK_REFERENCEABLE (UpdateChecker)
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UpdateChecker)
};

} // namespace mk::pluginCore
