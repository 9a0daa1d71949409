// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/processor/ManualPage.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/Product.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{

const juce::URL site ("https://site.example/manual.html");

[[nodiscard]] juce::File writePage (const juce::File& folder)
{
    auto page = folder.getChildFile ("index.html");
    EXPECT_TRUE (folder.createDirectory());
    EXPECT_TRUE (page.replaceWithText ("<html></html>"));
    return page;
}

TEST (ManualPage, IsTheSitesWithoutAnInstalledOne)
{
    const test::TemporaryFolder empty;
    EXPECT_EQ (manual::choosePage ({}, site), site);
    EXPECT_EQ (manual::choosePage ({ empty.get(), empty.get().getChildFile ("missing") }, site), site);
}

TEST (ManualPage, IsTheFirstOfTheInstalledOnes)
{
    const test::TemporaryFolder base;
    const auto missing = base.get().getChildFile ("missing");
    const auto first = base.get().getChildFile ("first one");
    const auto second = base.get().getChildFile ("second");
    const auto secondPage = writePage (second);
    EXPECT_EQ (manual::choosePage ({ missing, first, second }, site).getLocalFile(), secondPage);

    const auto firstPage = writePage (first);
    const auto chosen = manual::choosePage ({ missing, first, second }, site);
    EXPECT_EQ (chosen.getLocalFile(), firstPage);
    EXPECT_TRUE (chosen.isLocalFile());
    EXPECT_TRUE (chosen.toString (true).endsWith ("/first%20one/index.html")) << chosen.toString (true);
}

TEST (ManualPage, IsNotAFolderOfThatName)
{
    const test::TemporaryFolder base;
    ASSERT_TRUE (base.get().getChildFile ("index.html").createDirectory());
    EXPECT_EQ (manual::choosePage ({ base.get() }, site), site);
}

#if JUCE_LINUX
TEST (ManualPage, OnLinuxIsLookedForInTheUsersDataBeforeTheSystems)
{
    const test::TemporaryHome home;
    const auto folders = manual::getFolders();
    ASSERT_EQ (folders.size(), 3u);
    EXPECT_EQ (folders[0], home.getFolder().getChildFile (".local/share/doc/orlo/manual"));
    EXPECT_EQ (folders[1], home.getSystemDataFolder().getChildFile ("doc/orlo/manual"));
    EXPECT_EQ (folders[2], folders[1]) << "the installation's own data folder is the one with the presets";
}

TEST (ManualPage, OfTheProductIsTheInstalledOne)
{
    const test::TemporaryHome home;
    AudioPluginAudioProcessor processor (nullptr);
    EXPECT_EQ (getManualUrl (processor).toString (true),
               processor.getReleaseNotesUrl() + "/manual.html?s=orlo&v=" + processor.getProductInfo().version);

    const auto page = writePage (home.getSystemDataFolder().getChildFile ("doc/orlo/manual"));
    EXPECT_EQ (getManualUrl (processor).getLocalFile(), page);
}
#endif

} // namespace
} // namespace mk::orlo
