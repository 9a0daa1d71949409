// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillDrawer.h"

#include "MemorySource.h"
#include "orlo/stills/HistorySource.h"
#include "orlo/stills/MakeStill.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mk::orlo::test
{
namespace
{

class StillDrawerTest : public testing::Test
{
protected:
    StillDrawerTest()
    {
        drawer.onPicture = [this] (std::shared_ptr<const StillPicture> picture)
        { pictures.push_back (std::move (picture)); };
        drawer.onFailure = [this] (const juce::String& why) { failures.add (why); };
    }

    [[nodiscard]] bool waitForEnd()
    {
        return pumpUntil ([this] { return ! drawer.isDrawing(); }, 120.0);
    }

    static void expectSame (const StillPicture& left, const StillPicture& right)
    {
        for (int y = 0; y < left.getHeight(); ++y)
            ASSERT_TRUE (std::equal (left.getRow (y).begin(), left.getRow (y).end(), right.getRow (y).begin())) << y;
    }

    StillDrawer drawer { StillPriority::onScreen };
    std::vector<std::shared_ptr<const StillPicture>> pictures;
    juce::StringArray failures;
    const StillRequest quick = makeRequest (makeQuietNoise (40000), 0.0, 40000.0, 100, 50, true);

    // So many frames that a coarse picture comes first.
    const StillRequest slow = makeRequest (makeQuietNoise (1200000), 0.0, 1200000.0, 600, 20, true);
};

TEST_F (StillDrawerTest, ADrawnPictureComesOnceOnTheMessageThread)
{
    EXPECT_FALSE (drawer.isDrawing());
    EXPECT_EQ (drawer.getProgress(), 1.0);
    drawer.draw (quick);
    EXPECT_TRUE (drawer.isDrawing());
    EXPECT_TRUE (pictures.empty());

    ASSERT_TRUE (waitForEnd());
    ASSERT_EQ (pictures.size(), 1u);
    EXPECT_FALSE (pictures[0]->isCoarse());
    expectSame (*pictures[0], *makeStill (quick, 1, [] (double) { return true; }));

    // It is there already.
    drawer.draw (quick);
    EXPECT_FALSE (drawer.isDrawing());
}

TEST_F (StillDrawerTest, ASlowPictureComesCoarseFirst)
{
    drawer.draw (slow);
    ASSERT_TRUE (waitForEnd());

    // Both may have been finished before any was fetched.
    const auto& finest = *pictures.back();
    EXPECT_FALSE (finest.isCoarse());
    expectSame (finest, *makeStill (slow, 1, [] (double) { return true; }));
}

TEST_F (StillDrawerTest, OnlyTheNewestRequestsPictureComes)
{
    auto request = slow;

    for (int i = 0; i < 20; ++i)
    {
        request.start = double (i);
        drawer.draw (request);
    }

    ASSERT_TRUE (waitForEnd());

    for (const auto& picture : pictures)
        EXPECT_EQ (picture->getRequest().start, 19.0);

    EXPECT_FALSE (pictures.back()->isCoarse());
}

TEST_F (StillDrawerTest, ACancelledPictureNeverComesButCanBeAskedForAgain)
{
    drawer.draw (slow);
    drawer.cancel();
    EXPECT_FALSE (drawer.isDrawing());
    drawer.draw (quick);
    ASSERT_TRUE (waitForEnd());
    EXPECT_EQ (pictures.size(), 1u);

    drawer.cancel();
    drawer.draw (quick);
    ASSERT_TRUE (waitForEnd());
    EXPECT_EQ (pictures.size(), 2u);
}

TEST_F (StillDrawerTest, ADrawerMayGoWhileThePoolWorks)
{
    for (int i = 0; i < 20; ++i)
    {
        StillDrawer other { StillPriority::beside };
        other.onPicture = [] (const auto&) { ADD_FAILURE(); };
        other.draw (i % 2 == 0 ? slow : quick);
    }

    pumpPending();
}

TEST_F (StillDrawerTest, AFailureIsToldAndTheNextPictureComes)
{
    const auto sound = std::make_shared<KeptSound> (44100.0, 1, 40000);
    const std::vector<float> block (40000, 0.5f);
    const auto* const channel = block.data();
    sound->push (&channel, 1, 40000, {});

    auto request = quick;
    request.source = std::make_shared<HistorySource> (sound);
    sound->push (&channel, 1, 40000, {});
    drawer.draw (request);
    ASSERT_TRUE (waitForEnd());
    EXPECT_EQ (failures.joinIntoString ("|"), "the sound is not kept any more");
    EXPECT_TRUE (pictures.empty());

    drawer.draw (quick);
    ASSERT_TRUE (waitForEnd());
    EXPECT_EQ (pictures.size(), 1u);
}

TEST_F (StillDrawerTest, ManyDrawersShareThePool)
{
    std::vector<std::unique_ptr<StillDrawer>> drawers;
    int numPictures = 0;

    for (int i = 0; i < 10; ++i)
    {
        drawers.push_back (std::make_unique<StillDrawer> (StillPriority::beside));
        drawers.back()->onPicture = [&numPictures] (const auto& picture)
        { numPictures += picture->isCoarse() ? 0 : 1; };
        drawers.back()->draw (quick);
    }

    EXPECT_TRUE (pumpUntil ([&] { return numPictures == 10; }, 120.0));
}

} // namespace
} // namespace mk::orlo::test
