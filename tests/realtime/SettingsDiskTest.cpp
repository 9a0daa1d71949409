// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that nobody waits for a lock while the settings are being read from the disk or written to it.
#include "RealtimeGuard.h"

#include "plugin_core/settings/PluginGlobalSettings.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <mutex>

namespace mk::orlo::test
{
namespace
{

void setWidth (const char* width)
{
    const pluginCore::PluginGlobalSettings handle;
    handle.getSettings().setProperty (pluginCore::SettingsIds::defaultWidth, width, nullptr);
}

TEST (SettingsDisk, IsNeitherReadNorWrittenUnderALock)
{
    const TemporaryHome home;
    setWidth ("1000");

    const RealtimeGuard guard;
    setWidth ("1100");
    EXPECT_GE (guard.getViolations().fileOperations, 3) << "a read, an fsync and a rename";
    EXPECT_EQ (guard.getViolations().fileOperationsUnderLock, 0);
}

TEST (SettingsDisk, IsSeenByTheGuardUnderALock)
{
    const TemporaryHome home;
    setWidth ("1000");
    std::mutex mutex;

    const RealtimeGuard guard;
    const std::scoped_lock lock (mutex);
    setWidth ("1100");
    EXPECT_EQ (guard.getViolations().fileOperationsUnderLock, guard.getViolations().fileOperations);
}

} // namespace
} // namespace mk::orlo::test
