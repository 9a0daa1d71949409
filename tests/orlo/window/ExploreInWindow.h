// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "EditorInWindow.h"
#include "tests/support/PlayNoise.h"

namespace mk::orlo::test
{

/** A window whose picture shows noise and can be frozen and looked at, with the real mouse, wheel and keyboard. */
class ExploreInWindowTest : public EditorInWindowTest
{
protected:
    static constexpr int wheelUp = 4, wheelDown = 5;

    void SetUp() override
    {
        EditorInWindowTest::SetUp();

        if (IsSkipped() || HasFatalFailure())
            return;

        ASSERT_TRUE (playNoiseUntilItShows (processor, getPicture().getWidth()));
        playNoise (6.0);
        ASSERT_TRUE (waitUntilAllIsPainted (processor));
    }

    /** Waits until there is room for another block of sound in every queue, so that no frame is lost. */
    [[nodiscard]] bool waitForTheWorker()
    {
        constexpr int fewFrames = 10;
        auto& worker = processor.getFftProcessor();
        return pumpUntil (
            [&] { return worker.getNumSamplesReady() < worker.getHop() && worker.getNumFramesReady() < fewFrames; });
    }

    /** Plays noise that is louder and quieter in turn, as fast as the analysis can. */
    void playNoise (double seconds)
    {
        juce::Random random (2);
        juce::AudioBuffer<float> buffer (2, 512);
        juce::MidiBuffer midi;

        for (int block = 0; double (block) * 512.0 / 44100.0 < seconds; ++block)
        {
            for (int channel = 0; channel < 2; ++channel)
                for (int i = 0; i < buffer.getNumSamples(); ++i)
                    buffer.setSample (channel, i, (random.nextFloat() - 0.5f) * (block % 20 < 10 ? 1.0f : 0.1f));

            processor.processBlock (buffer, midi);
            ASSERT_TRUE (waitForTheWorker());
        }
    }

    [[nodiscard]] SpectrogramComponent& getPicture() { return window->getPicture(); }
    [[nodiscard]] Exploration& getExploration() { return window->getContainer().getExploration(); }
    [[nodiscard]] Explorer& getExplorer() { return getPicture().getExplorer(); }
    [[nodiscard]] const TimeView& getTimes() { return getExplorer().getTimeView(); }

    /** Freezes by the parameter, and waits until the window has noticed. */
    void freeze()
    {
        set (Params::id::freeze, 1.0f);
        waitForTicks();
    }

    void waitForTicks()
    {
        const auto& count = processor.getFrameClock().tickCount;
        const auto start = count.load (std::memory_order_relaxed);
        ASSERT_TRUE (pumpUntil ([&] { return count.load (std::memory_order_relaxed) > start + 2; }));
    }

    void turnWheel (int button)
    {
        window->press (button);
        window->release();
    }

    [[nodiscard]] bool waitForExploring (bool shouldBe = true)
    {
        return pumpUntil ([&] { return getExplorer().isExploring() == shouldBe; });
    }

    [[nodiscard]] bool waitForPicture()
    {
        return pumpUntil ([this] { return getExplorer().isPictureCurrent(); }, 60.0);
    }

    /** What the view shows. */
    [[nodiscard]] juce::Image paint()
    {
        return getPicture().createComponentSnapshot (getPicture().getLocalBounds(), true, 1.0f);
    }

    [[nodiscard]] static bool areSame (const juce::Image& left, const juce::Image& right)
    {
        if (left.getBounds() != right.getBounds())
            return false;

        for (int y = 0; y < left.getHeight(); ++y)
            for (int x = 0; x < left.getWidth(); ++x)
                if (left.getPixelAt (x, y) != right.getPixelAt (x, y))
                    return false;

        return true;
    }

    /** Sends the window a turn of the wheel as the system does, for wheels that the screen's mouse has not got. */
    void sendWheel (float deltaX, float deltaY, int modifiers, bool isSmooth)
    {
        juce::MouseWheelDetails wheel;
        wheel.deltaX = deltaX;
        wheel.deltaY = deltaY;
        wheel.isSmooth = isSmooth;
        wheel.isReversed = wheel.isInertial = false;
        const juce::ScopedValueSetter<juce::ModifierKeys> held (
            juce::ModifierKeys::currentModifiers, juce::ModifierKeys (modifiers), juce::ModifierKeys());
        window->editor->getPeer()->handleMouseWheel (
            juce::MouseInputSource::InputSourceType::mouse, getCursor(), juce::Time::currentTimeMillis(), wheel);
    }

    void sendPinch (float scale)
    {
        window->editor->getPeer()->handleMagnifyGesture (
            juce::MouseInputSource::InputSourceType::mouse, getCursor(), juce::Time::currentTimeMillis(), scale);
    }

    /** Where the mouse is, as the window system tells the window. */
    [[nodiscard]] juce::Point<float> getCursor()
    {
        return window->editor->getPeer()->globalToLocal (
            juce::Desktop::getInstance().getMainMouseSource().getScreenPosition());
    }
};

} // namespace mk::orlo::test
