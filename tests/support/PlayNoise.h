// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MessageLoop.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"

namespace mk::orlo::test
{

/** Lets the host play noise until a picture of that width shows it three quarters to the right, which is where
    Scroll paints first. False if it never does. [message thread] */
[[nodiscard]] inline bool playNoiseUntilItShows (AudioPluginAudioProcessor& processor, int pictureWidth)
{
    juce::Random random (1);
    juce::AudioBuffer<float> buffer (2, 512);
    juce::MidiBuffer midi;

    return pumpUntil (
        [&]
        {
            for (int channel = 0; channel < 2; ++channel)
                for (int i = 0; i < buffer.getNumSamples(); ++i)
                    buffer.setSample (channel, i, random.nextFloat() - 0.5f);

            processor.processBlock (buffer, midi);
            const auto& builder = processor.getImageBuilder();
            const auto& picture = builder.getPicture();
            const juce::Point wanted { pictureWidth * 3 / 4, picture.getHeight() / 2 };
            auto isShown = false;
            picture.forEachPiece (builder.isPictureScrolling(),
                                  [&] (const SpectrogramRing::Piece& piece)
                                  {
                                      const auto pixel = piece.image.getPixelAt (wanted.x - piece.x, wanted.y);
                                      isShown = isShown || pixel.getBrightness() > 0.1f;
                                  });
            return isShown && picture.getWidth() == pictureWidth;
        },
        30.0);
}

/** Waits, after playing has stopped, until all that was played has been painted: until no frame has been taken
    for several ticks of the display. [message thread] */
[[nodiscard]] inline bool waitUntilAllIsPainted (AudioPluginAudioProcessor& processor)
{
    constexpr auto ticksOfRest = 20u;

    auto& worker = processor.getFftProcessor();
    const auto& tickCount = processor.getFrameClock().tickCount;
    auto restsSince = tickCount.load (std::memory_order_relaxed);

    return pumpUntil (
        [&, lastNumReady = -1]() mutable
        {
            const auto now = tickCount.load (std::memory_order_relaxed);
            const auto numReady = worker.getNumSamplesReady() + worker.getNumFramesReady();

            if (std::exchange (lastNumReady, numReady) != numReady)
                restsSince = now;

            return now >= restsSince + ticksOfRest;
        });
}

} // namespace mk::orlo::test
