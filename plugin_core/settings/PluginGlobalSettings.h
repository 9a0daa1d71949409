// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SettingsFile.h"
#include "SettingsIds.h"

#include <juce_data_structures/juce_data_structures.h>

#include <memory>
#include <optional>

namespace mk::pluginCore
{

/** A handle to what belongs to the user and not to a session. All handles of a process share one tree in
    memory. The file is read when the first handle is made and written when the last one goes, so two
    handles see each other's changes at once; of two processes the last to close wins.

    Making, copying and destroying a handle is safe on any thread; the tree has no lock and is the message
    thread's. No failure is reported: a file that cannot be read gives an empty tree, and a failed write
    loses the values of this run. */
class PluginGlobalSettings
{
public:
    class InnerData;

    /** Takes part in the process's settings, and reads the file if nothing else does so far. */
    PluginGlobalSettings();

    /** Shares what the other handle shares. */
    PluginGlobalSettings (const PluginGlobalSettings&);
    PluginGlobalSettings& operator= (const PluginGlobalSettings&) = delete;

    /** The last handle writes the file. */
    ~PluginGlobalSettings();

    /** [message thread] The shared tree, read and written by the names of SettingsIds, without undo. */
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
        parseUntrustedXml() refuses is renamed to the suffix ".broken", and a new one takes its place in the
        end. Any thread. */
    explicit InnerData (const juce::File& fileToUse = findSettingsFile (getOptions()));

    /** Writes the tree to the file if it was changed. A half-written file never takes the place of the former
        one. */
    ~InnerData() override;

    /** What the file is called and what form it has; findSettingsFile() says where it lies. */
    [[nodiscard]] static Options getOptions();

    [[nodiscard]] juce::ValueTree getSettings() const { return settings; }

private:
    friend class PluginGlobalSettings;

    /** The document to write, which counts as written from now on. Empty if nothing has changed. */
    [[nodiscard]] juce::String takeChanges();
    void discardChanges() { static_cast<void> (takeChanges()); }
    void write (const juce::String& document) const;

    juce::ValueTree settings { SettingsIds::settings };
    std::optional<juce::String> textInFile; // the tree's, nothing if it was never written
    int numHandles = 0;                     // guarded by the handles' mutex
    bool isBeingWritten = false;            // the same

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (InnerData)
};

} // namespace mk::pluginCore
