// SPDX-License-Identifier: AGPL-3.0-or-later
// Counts what the message thread allocates at a display refresh and at a tick of a fade.
#include "RealtimeGuard.h"

#include "orlo/display/SpectrogramComponent.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/controls/AnimatedTextButton.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/PlayNoise.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
/** How often the calling thread allocates and frees memory while it runs the action. */
template <typename Action>
[[nodiscard]] int countAllocations (const Action& action)
{
    const RealtimeGuard guard;
    action();
    return guard.getViolations().allocations;
}

class PictureTickTest : public testing::Test
{
protected:
    PictureTickTest()
    {
        processor.prepareToPlay (44100.0, 512);
        window.setSize (400, 200);
        window.addAndMakeVisible (view);
        view.setBounds (window.getLocalBounds());
        window.setVisible (true);
    }

    void refreshDisplay() { window.refreshDisplay (time += 1.0 / 60.0); }

    AudioPluginAudioProcessor processor;
    FakeWindow window;
    SpectrogramComponent view { processor, processor.getFftProcessor(), processor.getImageBuilder() };
    double time = 1000.0;
};

TEST_F (PictureTickTest, ARefreshOfTheDisplayAllocatesNothing)
{
    const auto& tickCount = processor.getFrameClock().tickCount;
    const auto isTicking = [&]
    {
        const auto before = tickCount.load();
        refreshDisplay();
        return tickCount.load() > before;
    };
    ASSERT_TRUE (pumpUntil (isTicking));

    for (int i = 0; i < 100; ++i)
    {
        const auto before = tickCount.load();
        EXPECT_EQ (countAllocations ([this] { refreshDisplay(); }), 0);
        EXPECT_EQ (tickCount.load(), before + 1);
    }
}

TEST_F (PictureTickTest, ARefreshThatRepaintsNewColumnsAllocatesNothing)
{
    auto play = [this, buffer = juce::AudioBuffer<float> (2, 512), random = juce::Random (1)]() mutable
    {
        juce::MidiBuffer midi;

        for (int channel = 0; channel < 2; ++channel)
            for (int i = 0; i < buffer.getNumSamples(); ++i)
                buffer.setSample (channel, i, random.nextFloat() - 0.5f);

        processor.processBlock (buffer, midi);
    };

    int numRepaints = 0, numAllocations = 0;

    // The first columns make the picture.
    ASSERT_TRUE (pumpUntil (
        [&]
        {
            const auto isPictureMade = processor.getImageBuilder().getPicture().getWidth() > 0;
            play();
            const auto before = window.getNumRepaints();
            const auto allocations = countAllocations ([this] { refreshDisplay(); });

            if (isPictureMade && window.getNumRepaints() > before)
            {
                ++numRepaints;
                numAllocations += allocations;
            }

            return numRepaints >= 50;
        },
        60.0));
    EXPECT_EQ (numAllocations, 0);
}

TEST_F (PictureTickTest, PaintingAllocatesNoMoreThanDrawingAnImageDoes)
{
    juce::AudioBuffer<float> buffer (2, 512);
    buffer.clear();
    juce::MidiBuffer midi;
    ASSERT_TRUE (pumpUntil (
        [&]
        {
            processor.processBlock (buffer, midi);
            refreshDisplay();
            return processor.getImageBuilder().getPicture().getWidth() > 0;
        }));

    const auto picture = processor.getImageBuilder().getPicture().copyShownPart (false);

    juce::Image canvas (juce::Image::ARGB, 400, 200, true, juce::SoftwareImageType());
    const auto countFor = [&canvas] (const auto& draw)
    {
        juce::Graphics g (canvas);
        g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
        return countAllocations ([&] { draw (g); });
    };
    const auto countForView = [&] { return countFor ([this] (juce::Graphics& g) { view.paint (g); }); };
    const auto countForImage = [&]
    { return countFor ([&picture] (juce::Graphics& g) { g.drawImageTransformed (picture, {}); }); };

    // The first call of each fills the renderer's caches.
    static_cast<void> (countForView());
    static_cast<void> (countForImage());
    EXPECT_LE (countForView(), countForImage());
}

TEST (FadeTick, AllocatesNothing)
{
    FakeWindow window;
    window.setSize (400, 200);
    pluginCore::AnimatedTextButton button { "button" };
    window.addAndMakeVisible (button);
    button.setBounds (10, 10, 100, 30);
    window.setVisible (true);

    auto& animator = button.getMouseAnimator();
    animator.setDuration (pluginCore::GenericComponentAnimator::State::clicked, 400);
    animator.click();
    ASSERT_TRUE (animator.isTimerRunning());

    for (int i = 0; i < 10; ++i)
    {
        const auto before = window.getNumRepaints();
        EXPECT_EQ (countAllocations ([&animator] { animator.timerCallback(); }), 0) << i;
        EXPECT_EQ (window.getNumRepaints(), before + 1) << i;
    }

    EXPECT_FALSE (animator.isTimerRunning()) << "the last tick stops the timer";
}

} // namespace
} // namespace mk::orlo::test
