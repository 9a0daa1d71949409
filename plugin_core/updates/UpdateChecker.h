// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"
#include "UpdateReplies.h"

#include <juce_events/juce_events.h>

namespace mk::pluginCore
{

class PluginProcessor;

/** Asks the vendor's site for the latest version and for its change log, on a thread that runs for one
    request. Any failure counts as no new version or as an empty change log. [message thread] */
class UpdateChecker final : public juce::Thread, public juce::AsyncUpdater
{
public:
    /** Called on the message thread. */
    class Listener
    {
    public:
        virtual ~Listener() = default;

        /** A check has ended, with or without an answer; without one newVersionAvailable is false. The date is
            in milliseconds since 1970. */
        virtual void versionInfoReceived (UpdateChecker&, bool newVersionAvailable, juce::int64 latestReleaseDate) = 0;

        /** The request for the change log has ended; the text is empty if it failed. */
        virtual void changeLogReceived (UpdateChecker&, const juce::String& text) = 0;
    };

    UpdateChecker (const PluginProcessor& processor, std::unique_ptr<HttpTransport> transport);

    /** Cancels a running request. */
    ~UpdateChecker() override;

    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

    /** Sets the URL of the folder that contains the pages. Not while a request is running. */
    void setBaseUrl (juce::URL url) { baseUrl = std::move (url); }

    /** Sets the time limit of one request. Not while one is running. */
    void setTimeLimit (int milliseconds) noexcept { timeLimitMs = milliseconds; }

    /** Starts a check. Returns false and starts nothing if one is already running in this process, so that
        windows that are opened together make one request. */
    bool checkVersion();

    /** Starts to fetch the change log. Waits up to 50 ms for the thread of the previous request to exit. Returns
        false and starts nothing if it takes longer. */
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

    // Set only while no request is running.
    juce::URL baseUrl;
    int timeLimitMs;
    bool fetchChangeLog = false;
    bool holdsClaim = false;

    // Written by the thread, read on the message thread after the thread has triggered the async update.
    updateReplies::LatestVersion latest;
    bool newVersionAvailable = false;
    juce::String changeLog;

    JUCE_DECLARE_WEAK_REFERENCEABLE (UpdateChecker)
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UpdateChecker)
};

} // namespace mk::pluginCore
