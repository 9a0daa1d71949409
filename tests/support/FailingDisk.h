// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

namespace mk::orlo::test
{

/** A disk of the given size in a folder of its own. Mounting needs privileges: see isMounted(). Linux only. */
class SmallDisk
{
public:
    explicit SmallDisk (int kilobytes);
    ~SmallDisk();

    [[nodiscard]] bool isMounted() const noexcept { return mounted; }
    [[nodiscard]] juce::File getFolder() const { return folder.get(); }

private:
    const TemporaryFolder folder;
    const bool mounted;

    JUCE_DECLARE_NON_COPYABLE (SmallDisk)
};

/** While it exists, this process can write no file beyond the given size, as on a full disk. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit (juce::int64 bytes);
    ~FileSizeLimit();

private:
    const juce::int64 formerLimit;

    JUCE_DECLARE_NON_COPYABLE (FileSizeLimit)
};

/** While it exists, the process can read the folder but not write to it, even if it runs as root. */
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder (const juce::File& folder);
    ~ReadOnlyFolder();

private:
    const juce::File folder;
    const bool wasRoot;

    JUCE_DECLARE_NON_COPYABLE (ReadOnlyFolder)
};

} // namespace mk::orlo::test
