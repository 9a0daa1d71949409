// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FailingDisk.h"

#if JUCE_LINUX

    #include <csignal>
    #include <sys/mount.h>
    #include <sys/resource.h>
    #include <sys/stat.h>
    #include <unistd.h>

namespace mk::orlo::test
{
namespace
{
constexpr uid_t unprivilegedUser = 65534;

[[nodiscard]] bool mountDisk (const juce::File& folder, int kilobytes)
{
    const auto options = "size=" + juce::String (kilobytes) + "k";
    return mount ("tmpfs", folder.getFullPathName().toRawUTF8(), "tmpfs", 0, options.toRawUTF8()) == 0;
}

/** Sets the limit and returns the former one. */
juce::int64 setFileSizeLimit (juce::int64 bytes)
{
    rlimit limit {};

    if (getrlimit (RLIMIT_FSIZE, &limit) != 0)
        std::abort();

    const auto former = juce::int64 (limit.rlim_cur);
    limit.rlim_cur = rlim_t (bytes);

    if (setrlimit (RLIMIT_FSIZE, &limit) != 0)
        std::abort();

    return former;
}

void setMode (const juce::File& folder, mode_t mode)
{
    if (chmod (folder.getFullPathName().toRawUTF8(), mode) != 0)
        std::abort();
}

void setEffectiveUser (uid_t user)
{
    if (seteuid (user) != 0)
        std::abort();
}
} // namespace

SmallDisk::SmallDisk (int kilobytes) : mounted (mountDisk (folder.get(), kilobytes)) {}

SmallDisk::~SmallDisk()
{
    if (mounted)
        umount2 (folder.get().getFullPathName().toRawUTF8(), MNT_DETACH);
}

FileSizeLimit::FileSizeLimit (juce::int64 bytes) : formerLimit (setFileSizeLimit (bytes))
{
    // By default this signal ends the process. The write is to fail instead.
    std::signal (SIGXFSZ, SIG_IGN);
}

FileSizeLimit::~FileSizeLimit()
{
    setFileSizeLimit (formerLimit);
    std::signal (SIGXFSZ, SIG_DFL);
}

ReadOnlyFolder::ReadOnlyFolder (const juce::File& folderToProtect) : folder (folderToProtect), wasRoot (geteuid() == 0)
{
    setMode (folder, 0555);

    if (wasRoot)
        setEffectiveUser (unprivilegedUser);
}

ReadOnlyFolder::~ReadOnlyFolder()
{
    if (wasRoot)
        setEffectiveUser (0);

    setMode (folder, 0755);
}

} // namespace mk::orlo::test

#endif
