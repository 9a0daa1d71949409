// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/explore/Explorer.h"

#include "orlo/stills/MakeStill.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mk::orlo::test
{
namespace
{

constexpr int exploredLength = 44100;

class ExplorerTest : public testing::Test, protected Explorer::Listener
{
protected:
    ExplorerTest()
    {
        push (exploredLength);
        settings.colours.map = std::make_shared<const ColourMap> (0u);
        explorer.addListener (this);
    }

    ~ExplorerTest() override { explorer.removeListener (this); }

    void push (int count)
    {
        const auto noise = makeReferenceSignal ("noise", count, 44100.0);
        const auto* const channel = noise.data();
        sound->push (&channel, 1, count, {});
    }

    [[nodiscard]] bool begin()
    {
        explorer.setSize (80, 40);
        return explorer.begin (sound, exploredLength - 20000.0, 20000.0, settings);
    }

    [[nodiscard]] bool waitForPicture()
    {
        return pumpUntil ([this] { return explorer.isPictureCurrent(); }, 60.0);
    }

    void exploringChanged() override { ++numExploring; }
    void exploredRangeChanged() override { ++numRanges; }
    void exploredPictureChanged() override { ++numPictures; }

    std::shared_ptr<KeptSound> sound = std::make_shared<KeptSound> (44100.0, 1, 60000);
    ExploreSettings settings;
    Explorer explorer;
    int numExploring = 0, numRanges = 0, numPictures = 0;
};

TEST_F (ExplorerTest, NeedsSound)
{
    EXPECT_FALSE (explorer.begin (nullptr, 0.0, 1.0, settings));
    EXPECT_FALSE (explorer.begin (std::make_shared<KeptSound> (44100.0, 1, 1000), 0.0, 1.0, settings));
    EXPECT_FALSE (explorer.begin (sound, 0.0, 0.0, settings));
    EXPECT_FALSE (explorer.isExploring());
    EXPECT_EQ (numExploring, 0);
}

TEST_F (ExplorerTest, ShowsTheHomeRangeFirst)
{
    ASSERT_TRUE (begin());
    EXPECT_TRUE (explorer.isExploring());
    EXPECT_TRUE (explorer.getTimeView().isHome());
    EXPECT_EQ (numExploring, 1);
    ASSERT_TRUE (waitForPicture());

    const auto expected = makeStill (explorer.getPicture()->getRequest(), 1, [] (double) { return true; });
    EXPECT_EQ (expected->getRequest().start, exploredLength - 20000.0);
    EXPECT_EQ (expected->getWidth(), 80);
    EXPECT_EQ (expected->getHeight(), 40);

    for (int y = 0; y < 40; ++y)
        ASSERT_TRUE (std::equal (
            expected->getRow (y).begin(), expected->getRow (y).end(), explorer.getPicture()->getRow (y).begin()));
}

TEST_F (ExplorerTest, AnotherRangeNeedsAnotherPicture)
{
    ASSERT_TRUE (begin() && waitForPicture());
    const auto first = explorer.getPicture();
    auto view = explorer.getTimeView();
    view.moveBy (-1000.0);
    explorer.setTimeView (view);
    EXPECT_EQ (numRanges, 1);
    EXPECT_FALSE (explorer.isPictureCurrent());
    EXPECT_EQ (explorer.getPicture(), first) << "the picture before stays until there is another";

    ASSERT_TRUE (waitForPicture());
    EXPECT_EQ (explorer.getPicture()->getRequest().start, view.getStart());
}

TEST_F (ExplorerTest, ColoursAndLevelsNeedNoOtherAnalysis)
{
    ASSERT_TRUE (begin() && waitForPicture());
    const auto first = explorer.getPicture();
    const auto firstColour = explorer.getImage().getPixelAt (70, 20);
    numPictures = 0;

    settings.colours.floorDb = -60.0f;
    settings.colours.map = std::make_shared<const ColourMap> (2u);
    explorer.setSettings (settings);
    EXPECT_EQ (numPictures, 1);
    EXPECT_EQ (explorer.getPicture(), first);
    EXPECT_TRUE (explorer.isPictureCurrent());
    EXPECT_NE (explorer.getImage().getPixelAt (70, 20), firstColour);

    explorer.setSettings (settings);
    EXPECT_EQ (numPictures, 1);
}

TEST_F (ExplorerTest, EachOtherSettingNeedsAnotherPicture)
{
    ASSERT_TRUE (begin() && waitForPicture());

    const auto change = [this] (auto&& changeSetting)
    {
        const auto before = explorer.getPicture();
        changeSetting();
        explorer.setSettings (settings);
        EXPECT_FALSE (explorer.isPictureCurrent());
        EXPECT_TRUE (waitForPicture());
        EXPECT_NE (explorer.getPicture(), before);
    };

    change ([this] { settings.hop.windowSize = 512; });
    change ([this] { settings.hop.enhanced = false; });
    change ([this] { settings.hop.speed = 90.0f; });
    change ([this] { settings.scaleType = FrequencyScale::mel; });
    change ([this] { settings.maxFreqFraction = 0.5f; });
    EXPECT_EQ (explorer.getFrequencyScale()->getMaxFrequency(), 11025.0f);
    change ([this] { settings.pointsKept = PointsKept::lines; });
    change ([this] { explorer.setSize (60, 30); });
}

TEST_F (ExplorerTest, EndingForgetsThePicture)
{
    ASSERT_TRUE (begin());
    explorer.end();
    explorer.end();
    EXPECT_EQ (numExploring, 2);
    EXPECT_FALSE (explorer.isExploring());
    EXPECT_EQ (explorer.getPicture(), nullptr);
    EXPECT_EQ (sound.use_count(), 1);

    explorer.setTimeView (TimeView (0.0, 1.0, 1.0, 0.0, 1.0));
    explorer.setSettings (settings);
    explorer.setSize (10, 10);
    EXPECT_FALSE (explorer.isExploring());

    ASSERT_TRUE (begin() && waitForPicture());
}

TEST_F (ExplorerTest, ShowsWhatIsLeftIfMoreSoundCame)
{
    // A wide, slow picture of all the sound, of which the oldest part is overwritten meanwhile.
    push (20000);
    explorer.setSize (2000, 200);
    ASSERT_TRUE (explorer.begin (sound, double (sound->getStart()), double (sound->getCapacity()), settings));
    push (20000);
    ASSERT_TRUE (waitForPicture());
    EXPECT_GT (explorer.getTimeView().getSoundStart(), 0.0);
}

} // namespace
} // namespace mk::orlo::test
