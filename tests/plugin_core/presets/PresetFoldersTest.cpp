// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetFolders.h"

#include "plugin_core/presets/PresetBases.h"
#include "plugin_core/product/ProductInfo.h"
#include "tests/support/FailingDisk.h"
#include "tests/support/TemporaryHome.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{

const ProductInfo product { "Orlo", "Morlek", "1.2.1", 2025 };

TEST (PresetFolders, LieBelowTheCompanyAndTheProductAndAreCreated)
{
    const orlo::test::TemporaryFolder base;
    const auto system = base.get().getChildFile ("system");
    const auto user = base.get().getChildFile ("user");
    const auto folders = makePresetFolders (product, system, user);

    EXPECT_EQ (folders.factoryFolder, system.getChildFile ("Morlek/Orlo/presets").getFullPathName());
    EXPECT_EQ (folders.userFolder, user.getChildFile ("Morlek/Orlo/presets").getFullPathName());
    EXPECT_EQ (folders.designersFolder, system.getChildFile ("Morlek/Orlo/DesignersPresets").getFullPathName());
    EXPECT_EQ (folders.initFile, system.getChildFile ("Morlek/Orlo/presets/Init.mkpreset").getFullPathName());
    EXPECT_EQ (folders.fileExtension, ".mkpreset");

    for (const auto& root : folders.getRoots())
        EXPECT_TRUE (root.isDirectory()) << root.getFullPathName();
}

TEST (PresetFolders, ThatCannotBeCreatedAreReturnedAnyway)
{
    const orlo::test::TemporaryFolder base;
    const orlo::test::ReadOnlyFolder readOnly (base.get());
    const auto folders = makePresetFolders (product, base.get(), base.get());
    EXPECT_EQ (folders.userFolder, base.get().getChildFile ("Morlek/Orlo/presets").getFullPathName());
    EXPECT_FALSE (folders.getRoots()[1].exists());
}

TEST (PresetFolders, AFileInTheirPlaceIsLeftAlone)
{
    const orlo::test::TemporaryFolder base;
    const auto inTheWay = base.get().getChildFile ("Morlek");
    ASSERT_TRUE (inTheWay.replaceWithText ("mine"));
    EXPECT_TRUE (makePresetFolders (product, base.get(), base.get()).factoryFolder.endsWith ("presets"));
    EXPECT_EQ (inTheWay.loadFileAsString(), "mine");
}

#if JUCE_LINUX
TEST (PresetFolders, OnLinuxAreTheUsersConfigurationAndTheInstalledData)
{
    const orlo::test::TemporaryHome home;
    const auto folders = makePresetFolders (product);
    EXPECT_EQ (folders.userFolder, home.getFolder().getChildFile (".config/Morlek/Orlo/presets").getFullPathName());
    EXPECT_EQ (folders.factoryFolder,
               home.getSystemDataFolder().getChildFile ("Morlek/Orlo/presets").getFullPathName());
}

TEST (PresetFolders, OnLinuxADataFolderWithoutTheProductIsSkipped)
{
    const orlo::test::TemporaryHome home;
    ASSERT_TRUE (home.getSystemDataFolder().getChildFile ("Morlek").deleteRecursively());
    EXPECT_NE (getSystemPresetBase ("Morlek/Orlo"), home.getSystemDataFolder());
}

TEST (PresetFolders, OnLinuxAnInstallationForOneUserIsFoundBeforeTheSystems)
{
    const orlo::test::TemporaryHome home;
    const auto ownData = home.getFolder().getChildFile (".local/share");
    ASSERT_TRUE (ownData.getChildFile ("Morlek/Orlo/presets").createDirectory());
    EXPECT_EQ (getSystemPresetBase ("Morlek/Orlo"), ownData);
}

TEST (PresetFolders, OnLinuxTheUsersDataFolderMayBeElsewhere)
{
    const orlo::test::TemporaryHome home;
    const orlo::test::TemporaryFolder elsewhere;
    ASSERT_TRUE (elsewhere.get().getChildFile ("Morlek/Orlo/presets").createDirectory());
    setenv ("XDG_DATA_HOME", elsewhere.get().getFullPathName().toRawUTF8(), 1);
    EXPECT_EQ (getSystemPresetBase ("Morlek/Orlo"), elsewhere.get());
}
#endif

} // namespace
} // namespace mk::pluginCore
