// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/FreqScaleComponent.h"

#include "orlo/style/OrloColours.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Painting.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

#include <iterator>
#include <thread>

namespace mk::orlo::test
{
namespace
{

const juce::Colour ground { 0xff101010 };

/** A ruler as the container sets it up, in an editor of the given size. */
struct RulerInEditor
{
    RulerInEditor (int editorWidth, int editorHeight) : editor (editorWidth, editorHeight)
    {
        editor.addAndMakeVisible (ruler);
        const auto textHeight = juce::jlimit (15.0f, float (editorHeight), 25.0f * float (editorWidth) / 1818.0f);
        ruler.setSize (juce::roundToInt (2.0f * textHeight), editorHeight);
    }

    FrequencyScale scale;
    TestEditor editor;
    FreqScaleComponent ruler { scale };
};

[[nodiscard]] juce::Range<int> allColumns (const juce::Image& image) { return { 0, image.getWidth() }; }

TEST (FreqScaleComponent, TakesFourFifthsOfItsTextHeight)
{
    RulerInEditor design { 1818, 1000 };
    EXPECT_FLOAT_EQ (design.ruler.getFont().getHeight(), 20.0f);
    EXPECT_EQ (design.ruler.getWidth(), 50);

    RulerInEditor smallest { 100, 100 };
    EXPECT_FLOAT_EQ (smallest.ruler.getFont().getHeight(), 12.0f);

    RulerInEditor largest { 3840, 2112 };
    EXPECT_FLOAT_EQ (largest.ruler.getFont().getHeight(), 25.0f * 3840.0f / 1818.0f * 0.8f);
}

TEST (FreqScaleComponent, IsOpaqueHasANameAndIgnoresTheMouse)
{
    FrequencyScale scale;
    const FreqScaleComponent ruler { scale };
    EXPECT_TRUE (ruler.isOpaque());
    EXPECT_EQ (ruler.getTitle(), "Frequency ruler");
    EXPECT_FALSE (ruler.getWantsKeyboardFocus());
}

TEST (FreqScaleComponent, RebuildsWhenTheScaleHasChanged)
{
    RulerInEditor test { 1818, 1000 };
    test.scale.setRange (440.0f, 450.0f);
    test.scale.notifyListenersNow();
    ASSERT_EQ (test.ruler.getLabels().size(), 2u);
    EXPECT_EQ (test.ruler.getLabels()[0].text, "440");
    EXPECT_EQ (test.ruler.getLabels()[1].text, "450");

    test.scale.setRange (20.0f, 20000.0f);
    test.scale.setScaleType (FrequencyScale::linear);
    test.scale.notifyListenersNow();
    const auto linear = test.ruler.getLabels().size();
    test.scale.setScaleType (FrequencyScale::log);
    pumpPending();
    EXPECT_GT (test.ruler.getLabels().size(), linear) << "all decades fit on a log scale";
}

/** Counts the repaints that a component requests, on the message thread and on others. */
class RepaintCounter final : public juce::CachedComponentImage
{
public:
    struct Counts
    {
        int numOnMessageThread = 0, numElsewhere = 0;
    };

    explicit RepaintCounter (Counts& countsToRaise) : counts (countsToRaise) {}

    bool invalidateAll() override
    {
        ++(juce::MessageManager::existsAndIsCurrentThread() ? counts.numOnMessageThread : counts.numElsewhere);
        return true;
    }

    bool invalidate (const juce::Rectangle<int>&) override { return invalidateAll(); }
    void paint (juce::Graphics&) override {}
    void releaseResources() override {}

private:
    Counts& counts;
};

TEST (FreqScaleComponent, AScaleSetByAnotherThreadIsPaintedByTheMessageThread)
{
    RulerInEditor test { 1818, 1000 };
    test.scale.setRange (20.0f, 20000.0f);
    test.scale.notifyListenersNow();
    pumpPending();
    const auto getTexts = [&]
    {
        juce::StringArray texts;

        for (const auto& label : test.ruler.getLabels())
            texts.add (label.text);

        return texts;
    };
    const auto linear = getTexts();

    RepaintCounter::Counts repaints;
    test.ruler.setCachedComponentImage (new RepaintCounter (repaints));
    repaints = {};
    std::thread ([&] { test.scale.setScaleType (FrequencyScale::log); }).join();
    EXPECT_EQ (repaints.numElsewhere, 0);
    EXPECT_EQ (repaints.numOnMessageThread, 0) << "no repaint before the message thread handles the change";
    EXPECT_EQ (getTexts(), linear);

    pumpPending();
    EXPECT_GT (repaints.numOnMessageThread, 0);
    EXPECT_EQ (repaints.numElsewhere, 0);
    EXPECT_GT (getTexts().size(), linear.size()) << "all decades fit on a log scale";
}

TEST (FreqScaleComponent, CancelsItsPendingUpdatesWhenDestroyed)
{
    FrequencyScale scale;
    RepaintCounter::Counts repaints;
    juce::Component parent;
    parent.setSize (50, 1000);

    const auto changeAndGo = [&] (bool waitsForIt)
    {
        FreqScaleComponent ruler { scale };
        parent.addAndMakeVisible (ruler);
        ruler.setSize (50, 1000);
        pumpPending();
        ruler.setCachedComponentImage (new RepaintCounter (repaints));
        repaints = {};
        scale.setRange (0.0f, scale.getMaxFrequency() + 500.0f);
        scale.notifyListenersNow();

        if (waitsForIt)
            pumpPending();

        return repaints.numOnMessageThread;
    };

    EXPECT_GT (changeAndGo (true), 0) << "a change repaints a ruler that is still alive";
    static_cast<void> (changeAndGo (false));
    repaints = {};
    scale.setRange (0.0f, 600.0f);
    scale.notifyListenersNow();
    pumpPending();
    EXPECT_EQ (repaints.numOnMessageThread, 0);
}

TEST (FreqScaleComponent, PaintsOnlyItsBackgroundForAnEmptyRange)
{
    RulerInEditor test { 1818, 1000 };
    test.scale.setRange (440.0f, 440.0f);
    test.scale.notifyListenersNow();
    const auto image = paintComponent (test.ruler);
    EXPECT_TRUE (findBandsOfRows (image, ground, allColumns (image)).empty());
}

TEST (FreqScaleComponent, TakesItsBackgroundFromTheColourId)
{
    RulerInEditor test { 1818, 1000 };
    test.ruler.setColour (colourId::rulerBackground, juce::Colours::darkblue);
    EXPECT_EQ (paintComponent (test.ruler).getPixelAt (48, 500), juce::Colours::darkblue);
}

TEST (FreqScaleComponent, PaintsEachTextAtItsFrequency)
{
    RulerInEditor test { 1818, 1000 }; // linear, 0 to 20000 Hz
    const auto image = paintComponent (test.ruler);
    const auto bands = findBandsOfRows (image, ground, allColumns (image));
    ASSERT_EQ (bands.size(), 5u);

    const int expectedRows[] { 20, 500, 750, 900, 980 }; // 20k and 0 are moved in by the font's height

    for (size_t i = 0; i < bands.size(); ++i)
    {
        EXPECT_NEAR (double (bands[i].getStart() + bands[i].getEnd()) * 0.5, double (expectedRows[i]), 2.5) << i;
        EXPECT_LE (bands[i].getLength(), 20) << i;
        EXPECT_GE (bands[i].getLength(), 10) << i;
    }
}

struct Size
{
    int width, height;
};

constexpr Size sizes[] { { 100, 100 },  { 182, 100 },  { 300, 200 },   { 640, 352 },   { 909, 500 },   { 1000, 100 },
                         { 100, 1000 }, { 1280, 704 }, { 1818, 1000 }, { 2560, 1408 }, { 3840, 2112 }, { 3840, 100 } };

TEST (FreqScaleComponent, PaintsTextsThatNeverLeaveTheRulerAtAnySizeScaleAndPixelScale)
{
    constexpr int margin = 12;

    for (size_t i = 0; i < std::size (sizes); i += slowdown)
    {
        const auto& size = sizes[i];
        RulerInEditor test { size.width, size.height };

        for (int type = 0; type < FrequencyScale::numTypes; ++type)
            for (const auto& [min, max] : { std::pair { 0.0f, 22050.0f }, { 20.0f, 96000.0f }, { 0.0f, 176400.0f } })
                for (const auto scale : { 1.0f, 1.5f, 2.0f })
                {
                    SCOPED_TRACE (juce::String (size.width) + " x " + juce::String (size.height) + " type "
                                  + juce::String (type) + " max " + juce::String (max) + " at " + juce::String (scale));

                    test.scale.setScaleType (type);
                    test.scale.setRange (min, max);
                    test.scale.notifyListenersNow();

                    // The background fills the ruler, so ink in the margin is text that the edge would cut.
                    const auto image = paintUnclipped (test.ruler, margin, scale);
                    const auto edge = juce::roundToInt (float (margin) * scale);
                    const auto bands = findBandsOfRows (image, ground, allColumns (image));
                    ASSERT_FALSE (bands.empty());
                    EXPECT_GE (bands.front().getStart(), edge);
                    EXPECT_LE (bands.back().getEnd(), image.getHeight() - edge);
                    EXPECT_TRUE (findBandsOfRows (image, ground, { 0, edge }).empty());

                    // Half a pixel of anti-aliasing beyond the edge is allowed.
                    EXPECT_TRUE (
                        findBandsOfRows (image, ground, { image.getWidth() - edge + 1, image.getWidth() }).empty());
                }
    }
}

TEST (FreqScaleComponent, SqueezesItsTextsIntoAStripThatIsCutByANarrowWindow)
{
    RulerInEditor test { 100, 100 };
    test.scale.setRange (0.0f, 22050.0f);

    for (const auto width : { 20, 12, 8 })
    {
        test.ruler.setSize (width, 100);
        const auto image = paintUnclipped (test.ruler, 10);
        EXPECT_FALSE (findBandsOfRows (image, ground, { 10, 10 + width }).empty()) << width;
        EXPECT_TRUE (findBandsOfRows (image, ground, { 10 + width + 1, image.getWidth() }).empty()) << width;
    }
}

TEST (FreqScaleComponent, SurvivesAnEmptySize)
{
    FrequencyScale scale;
    FreqScaleComponent ruler { scale };
    EXPECT_TRUE (ruler.getLabels().empty());
    ruler.setSize (50, 0);
    EXPECT_TRUE (ruler.getLabels().empty());
    ruler.setSize (0, 50);
    ruler.setSize (1, 1);
    EXPECT_EQ (paintComponent (ruler).getHeight(), 1);
}

} // namespace
} // namespace mk::orlo::test
