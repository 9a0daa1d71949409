// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/PluginLoader.h"

#include "tests/hosts/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
constexpr auto inBuild = "../../plugin/Orlo.vst3";

TEST (FindPlugin, PrefersTheBundleOfTheSameBuild)
{
    const ScratchFolder root;
    root.getFile ("build/plugin/Orlo.vst3").createDirectory();
    root.getFile ("build/lib/vst3/Orlo.vst3").createDirectory();
    EXPECT_EQ (host::findPlugin (root.getFile ("build/tools/bin"), inBuild), root.getFile ("build/plugin/Orlo.vst3"));
}

TEST (FindPlugin, FindsOneThatIsInstalledWithAPrefix)
{
    const ScratchFolder root;
    root.getFile ("usr/lib/vst3/Orlo.vst3").createDirectory();
    EXPECT_EQ (host::findPlugin (root.getFile ("usr/bin"), inBuild), root.getFile ("usr/lib/vst3/Orlo.vst3"));
}

TEST (FindPlugin, FindsOneThatIsInstalledForOneUser)
{
    const ScratchFolder home;
    home.getFile (".vst3/Orlo.vst3").createDirectory();
    EXPECT_EQ (host::findPlugin (home.getFile (".local/bin"), inBuild), home.getFile (".vst3/Orlo.vst3"));
}

TEST (FindPlugin, NamesTheBuildsPlaceIfThereIsNone)
{
    const ScratchFolder root;
    EXPECT_EQ (host::findPlugin (root.getFile ("a/b/c"), inBuild), root.getFile ("a/plugin/Orlo.vst3"));
}
} // namespace
} // namespace mk::orlo::test
