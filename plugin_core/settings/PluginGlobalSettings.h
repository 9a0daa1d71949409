// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SettingsFile.h"
#include "SettingsIds.h"

#include <juce_data_structures/juce_data_structures.h>

#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** A handle to the per-user settings, which no session stores. All handles of a process share one tree in
    memory, so they see each other's changes at once. The file is read when the first handle is created and
    written when the last one is destroyed; if two processes write it, the later write wins.

    A handle may be created, copied and destroyed on any thread; the tree has no lock and may be used on the
    message thread only. No failure is reported: a file that cannot be read gives an empty tree, and a failed
    write loses the changes of this run. */
class PluginGlobalSettings
{
public:
    class InnerData;

    /** Shares the process's settings; the first handle reads the file. */
    PluginGlobalSettings();

    /** Shares the other handle's settings. */
    PluginGlobalSettings (const PluginGlobalSettings&);
    PluginGlobalSettings& operator= (const PluginGlobalSettings&) = delete;

    /** The last handle writes the file. */
    ~PluginGlobalSettings();

    /** [message thread] The shared tree. Its properties are named in SettingsIds and are set without undo. */
    [[nodiscard]] juce::ValueTree getSettings() const;

    [[nodiscard]] InnerData& getInnerData() const noexcept { return *innerData; }

private:
    [[nodiscard]] static std::shared_ptr<InnerData> obtainInstance();

    const std::shared_ptr<InnerData> innerData;

    JUCE_LEAK_DETECTOR (PluginGlobalSettings)
};

/** The shared object: the tree, and the properties file that serves as the tree's file. */
class PluginGlobalSettings::InnerData final : public juce::PropertiesFile
{
public:
    /** Reads the tree from the file; a missing or unreadable file leaves the tree empty. A file that
        parseUntrustedXml() rejects gets the suffix ".broken", and the next write creates a new
        file. Any thread. */
    explicit InnerData (const juce::File& fileToUse = findSettingsFile (getOptions()));

    /** Writes the tree to the file if it has changed. A partly written file never replaces the previous
        one. */
    ~InnerData() override;

    /** The name and format of the file; findSettingsFile() gives its location. */
    [[nodiscard]] static Options getOptions();

    [[nodiscard]] juce::ValueTree getSettings() const { return settings; }

private:
    friend class PluginGlobalSettings;

    /** Returns the document to write and marks the changes as written. Empty if nothing has changed. */
    [[nodiscard]] juce::String takeChanges();
    void discardChanges() { static_cast<void> (takeChanges()); }
    void write (const juce::String& document) const;

    juce::ValueTree settings { SettingsIds::settings };
    std::optional<juce::String> textInFile; // the tree as text, nothing if it was never written
    int numHandles = 0;                     // guarded by the handles' mutex
    bool isBeingWritten = false;            // the same

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (InnerData)
};

} // namespace mk::pluginCore
