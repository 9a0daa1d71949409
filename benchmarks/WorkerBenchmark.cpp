// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a frame in the analysis worker, compared with its transforms alone.
#include "orlo/analysis/FFTProcessor.h"

#include "benchmarks/support/Measure.h"

#include <memory>

namespace mk::orlo::bench
{
namespace
{

[[nodiscard]] std::vector<float> makeNoise (int numSamples)
{
    juce::Random random (1);
    std::vector<float> noise (static_cast<size_t> (numSamples));

    for (auto& sample : noise)
        sample = random.nextFloat() - 0.5f;

    return noise;
}

void measureFrames (int label, bool enhanced)
{
    const auto name = "worker frame, " + std::to_string (label) + (enhanced ? ", Enhanced" : ", Classic");
    const auto hop = juce::jmax (64, (label - 1) / 8);

    auto worker = std::make_shared<FFTProcessor>();
    worker->setSettings ({ { label - 1, 0, int (WindowType::hann) }, hop, enhanced, 0.0f });

    // The first call fills the window with noise. The frames are not taken out, so the worker drops them.
    measure (name,
             [worker, hop, noise = makeNoise (8192), primed = false]() mutable
             {
                 if (! primed)
                 {
                     worker->pushSamples (noise.data(), int (noise.size()));
                     worker->processAvailable();
                     primed = true;
                 }

                 worker->pushSamples (noise.data(), hop);
                 worker->processAvailable();
             });

    // The input is zeros, which stay zeros however often the buffer is transformed in place.
    auto fft = std::make_shared<juce::dsp::FFT> (juce::roundToInt (std::log2 (label)));
    auto buffer = std::make_shared<std::vector<float>> (size_t (label) * 2);

    measure (name + "/limit",
             [fft, buffer, enhanced]
             {
                 for (int i = 0; i < (enhanced ? 3 : 1); ++i)
                 {
                     fft->performRealOnlyForwardTransform (buffer->data(), true);
                     benchmark::ClobberMemory();
                 }
             });
}

} // namespace

void registerBenchmarks()
{
    for (const auto enhanced : { false, true })
        for (const auto label : { 256, 512, 1024, 2048, 4096, 8192 })
            measureFrames (label, enhanced);
}

} // namespace mk::orlo::bench
