// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/display/SpectrogramContainer.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/RepaintRecorder.h"

#include <gtest/gtest.h>

#include <vector>

namespace mk::orlo::test
{

/** A container in a window, which records what is to be repainted, with a builder without its thread. Needs no display. */
class ContainerInFakeWindow : public testing::Test
{
protected:
    ContainerInFakeWindow()
    {
        processor.prepareToPlay (44100.0, 512);
        window.setSize (320, 180);
        window.addAndMakeVisible (container);
        container.setBounds (window.getLocalBounds());
        window.setVisible (true);
        EXPECT_TRUE (pumpUntil ([this] { return builder.isThreadRunning(); })) << "the view does not notice its window";
        builder.stopThread (1000);
        set (Params::id::mode, 0.0f);
        set (Params::id::ruler, 1.0f);
        set (Params::id::keyboard, 1.0f);
        pumpPending();

        // The audio thread sets window and mode. After one window of silence, every hop makes a frame.
        juce::AudioBuffer<float> silence (2, 4096);
        silence.clear();
        juce::MidiBuffer midi;
        processor.processBlock (silence, midi);
        EXPECT_TRUE (pumpUntil ([this] { return worker.getNumSamplesReady() < worker.getHop(); }));

        for (int i = 0; i < 3; ++i)
        {
            play (20, 0.0f);
            tick();
        }

        EXPECT_GT (builder.getPicture().getWidth(), 0) << "there is no picture";
        static_cast<void> (recorder.take());
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** Fewer frames than the queue holds. */
    void play (int numFrames, float loudness)
    {
        for (; numFrames > 0; --numFrames)
        {
            std::vector<float> block (size_t (worker.getHop()));

            for (auto& sample : block)
                sample = (random.nextFloat() - 0.5f) * loudness;

            const auto wanted = worker.getNumFramesReady() + 1;
            worker.pushSamples (block.data(), int (block.size()));
            ASSERT_TRUE (pumpUntil ([&] { return worker.getNumFramesReady() >= wanted; }));
        }
    }

    /** Draws all frames that wait, and lets the view fetch the columns. */
    void tick()
    {
        builder.processTick (50.0f);
        view.tick (time += 0.02);
    }

    void mouse (void (SpectrogramComponent::*handler) (const juce::MouseEvent&), juce::Point<float> position)
    {
        const auto now = juce::Time::getCurrentTime();
        const juce::MouseEvent event (juce::Desktop::getInstance().getMainMouseSource(),
                                      position,
                                      juce::ModifierKeys::leftButtonModifier,
                                      juce::MouseInputSource::defaultPressure,
                                      juce::MouseInputSource::defaultOrientation,
                                      juce::MouseInputSource::defaultRotation,
                                      juce::MouseInputSource::defaultTiltX,
                                      juce::MouseInputSource::defaultTiltY,
                                      &view,
                                      &view,
                                      now,
                                      position,
                                      now,
                                      1,
                                      false);
        (view.*handler) (event);
    }

    AudioPluginAudioProcessor processor;
    FFTProcessor& worker = processor.getFftProcessor();
    SpectrogramImageBuilder& builder = processor.getImageBuilder();
    FakeWindow window;
    RepaintRecorder& recorder = RepaintRecorder::attachTo (window);
    SpectrogramContainer container { processor, worker, builder };
    SpectrogramComponent& view = container.getSpectrogram();
    juce::Random random { 1 };
    double time = 1000.0;
};

} // namespace mk::orlo::test
