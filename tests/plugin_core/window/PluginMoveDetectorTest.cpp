// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/window/PluginMoveDetector.h"

#include "tests/support/FakeWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] juce::Displays::Display makeDisplay (juce::Rectangle<int> area, double scale)
{
    juce::Displays::Display display;
    display.totalArea = area;
    display.userArea = area;
    display.scale = scale;
    return display;
}

class MockListener : public PluginMoveDetector::Listener
{
public:
    MOCK_METHOD (void, windowMoved, (PluginMoveDetector&), (override));
    MOCK_METHOD (void, applicationActiveChanged, (PluginMoveDetector&, bool), (override));
    MOCK_METHOD (void, retinaStateChanged, (PluginMoveDetector&, bool), (override));
};

using testing::_;

/** A window of 200 by 100 pixels with the editor in it, and a system that the test controls. */
class MoveDetector : public testing::Test
{
protected:
    MoveDetector()
    {
        window.setSize (200, 100);
        window.setVisible (true);
        window.addAndMakeVisible (editor);
        editor.setBounds (window.getLocalBounds());
        detector.addListener (&listener);
    }

    ~MoveDetector() override { detector.removeListener (&listener); }

    /** Steps, and expects exactly these calls. */
    void expectStep (int numMoves, std::optional<bool> wentInactive = {}, std::optional<bool> retina = {})
    {
        EXPECT_CALL (listener, windowMoved (testing::Ref (detector))).Times (numMoves);
        EXPECT_CALL (listener, applicationActiveChanged (_, _)).Times (0);
        EXPECT_CALL (listener, retinaStateChanged (_, _)).Times (0);

        if (wentInactive.has_value())
            EXPECT_CALL (listener, applicationActiveChanged (testing::Ref (detector), *wentInactive));

        if (retina.has_value())
            EXPECT_CALL (listener, retinaStateChanged (testing::Ref (detector), *retina));

        detector.checkNow();
        testing::Mock::VerifyAndClearExpectations (&listener);
    }

    bool active = true;
    PluginMoveDetector::DisplayList displays { makeDisplay ({ 0, 0, 1000, 1000 }, 1.0),
                                               makeDisplay ({ 1000, 0, 1000, 1000 }, 2.0) };

    orlo::test::FakeWindow window;
    juce::Component editor;
    PluginMoveDetector detector { editor,
                                  { [this] (const juce::Component&) { return active; }, [this] { return displays; } } };
    testing::StrictMock<MockListener> listener;
};
} // namespace

//==============================================================================
TEST_F (MoveDetector, ReportsTheApplicationOnItsFirstActiveStep)
{
    expectStep (0, false);
    expectStep (0);
}

TEST_F (MoveDetector, ReportsNothingOnAFirstStepThatFindsTheApplicationInactive)
{
    active = false;
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (0);
}

TEST_F (MoveDetector, ReportsOnceThatTheApplicationGoesToTheBackgroundAndComesBack)
{
    expectStep (0, false);
    active = false;
    expectStep (0, true);
    expectStep (0);
    active = true;
    expectStep (0, false);
}

TEST_F (MoveDetector, FindsAWindowThatTheHostHasDraggedOnTheNextStep)
{
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, false);
    expectStep (0);
    window.moveSilently ({ 10.0f, 20.5f });
    expectStep (1);
    window.moveSilently ({ 11.0f, 20.5f });
    expectStep (1);
    expectStep (0);
}

TEST_F (MoveDetector, TreatsAWindowAtTheOriginAsUnmovedUntilItsFirstMove)
{
    displays = { makeDisplay ({ 0, 0, 1000, 1000 }, 2.0) };
    expectStep (0, false);
    window.moveSilently ({ 1.0f, 0.0f });
    expectStep (1, {}, true);
}

TEST_F (MoveDetector, ReportsNoMoveWithoutAPeer)
{
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, false);
    window.removeFromDesktop();
    expectStep (0);

    window.addToDesktop (0);
    window.moveSilently ({ 30.0f, 20.0f });
    expectStep (1);
}

TEST_F (MoveDetector, ReportsNoMoveWhileTheWindowIsHidden)
{
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, false);
    window.setVisible (false);
    window.moveSilently ({ 1500.0f, 20.0f });
    expectStep (0);

    window.setVisible (true);
    expectStep (1, {}, true);
}

TEST_F (MoveDetector, WatchesNothingElseWhileTheApplicationIsInactive)
{
    expectStep (0, false);
    active = false;
    window.moveSilently ({ 1500.0f, 20.0f });
    expectStep (0, true);
    expectStep (0);
    active = true;
    expectStep (1, false, true);
}

TEST_F (MoveDetector, ReportsWhenTheWindowEntersAndLeavesAHighDensityDisplay)
{
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, false);
    window.moveSilently ({ 1500.0f, 20.0f });
    expectStep (1, {}, true);
    window.moveSilently ({ 1600.0f, 20.0f });
    expectStep (1);
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, {}, false);
}

TEST_F (MoveDetector, AssignsAWindowAcrossTwoDisplaysToTheOneWithMoreOfIt)
{
    window.moveSilently ({ 899.0f, 20.0f });
    expectStep (1, false);
    window.moveSilently ({ 901.0f, 20.0f });
    expectStep (1, {}, true);
    window.moveSilently ({ 899.0f, 20.0f });
    expectStep (1, {}, false);
    window.moveSilently ({ 900.0f, 20.0f });
    expectStep (1, {}, true);
}

TEST_F (MoveDetector, ChecksTheDensityOnlyAfterAMove)
{
    window.moveSilently ({ 10.0f, 20.0f });
    expectStep (1, false);
    displays = { makeDisplay ({ 0, 0, 1000, 1000 }, 2.0) };
    expectStep (0);
    window.moveSilently ({ 11.0f, 20.0f });
    expectStep (1, {}, true);
}

TEST_F (MoveDetector, TreatsAMissingDisplayAsALowDensityOne)
{
    window.moveSilently ({ 1500.0f, 20.0f });
    expectStep (1, false, true);
    displays.clear();
    window.moveSilently ({ 1501.0f, 20.0f });
    expectStep (1, {}, false);
}

TEST_F (MoveDetector, AppliesTheScaleOfTheDesktop)
{
    class ScaledEditor : public juce::Component
    {
        float getDesktopScaleFactor() const override { return 2.0f; }
    };

    ScaledEditor scaled;
    window.addAndMakeVisible (scaled);
    scaled.setBounds (window.getLocalBounds());

    PluginMoveDetector scaledDetector { scaled,
                                        { [] (const juce::Component&) { return true; }, [this] { return displays; } } };
    testing::NiceMock<MockListener> scaledListener;
    scaledDetector.addListener (&scaledListener);
    window.moveSilently ({ 10.0f, 20.0f });

    EXPECT_CALL (scaledListener, retinaStateChanged (_, true));
    scaledDetector.checkNow();
}

TEST_F (MoveDetector, OutlivesTheComponentThatItWatches)
{
    auto shortLived = std::make_unique<juce::Component>();
    window.addAndMakeVisible (*shortLived);
    PluginMoveDetector other { *shortLived,
                               { [] (const juce::Component&) { return true; }, [this] { return displays; } } };
    testing::NiceMock<MockListener> otherListener;
    other.addListener (&otherListener);

    window.moveSilently ({ 10.0f, 20.0f });
    EXPECT_CALL (otherListener, windowMoved (_)).WillOnce ([&] { shortLived.reset(); });
    EXPECT_CALL (otherListener, retinaStateChanged (_, _)).Times (0);
    other.checkNow();
    other.checkNow();
}

//==============================================================================
TEST (MoveDetectorDisplays, ChoosesTheLastOfEqualDisplays)
{
    const PluginMoveDetector::DisplayList displays { makeDisplay ({ 0, 0, 100, 100 }, 1.0),
                                                     makeDisplay ({ 100, 0, 100, 100 }, 1.0),
                                                     makeDisplay ({ 500, 0, 100, 100 }, 1.0) };

    EXPECT_EQ (PluginMoveDetector::findDisplay (displays, { 50, 0, 100, 100 }), &displays.getReference (1));
    EXPECT_EQ (PluginMoveDetector::findDisplay (displays, { 49, 0, 100, 100 }), &displays.getReference (0));
    EXPECT_EQ (PluginMoveDetector::findDisplay (displays, { 2000, 0, 100, 100 }), &displays.getReference (2));
    EXPECT_EQ (PluginMoveDetector::findDisplay ({}, { 50, 0, 100, 100 }), nullptr);
}

TEST (MoveDetectorDisplays, CallsOnlyEvenMultiplesHighDensity)
{
    for (const auto scale : { 2.0, 4.0, 6.0 })
        EXPECT_TRUE (PluginMoveDetector::isHighDensity (scale)) << scale;

    for (const auto scale : { 0.0, -2.0, 0.5, 1.0, 1.25, 1.5, 2.5, 3.0 })
        EXPECT_FALSE (PluginMoveDetector::isHighDensity (scale)) << scale;
}

} // namespace mk::pluginCore
