// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

namespace mk::orlo::test
{

/** A disk of the given size in a folder of its own. Mounting is a privilege: see isMounted(). Linux only. */
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

/** While it lives, this process can write no file beyond the given size, as on a disk that is full. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit (juce::int64 bytes);
    ~FileSizeLimit();

private:
    const juce::int64 formerLimit;

    JUCE_DECLARE_NON_COPYABLE (FileSizeLimit)
};

/** While it lives, the process has no more rights to the folder than to read it, not even root. */
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
