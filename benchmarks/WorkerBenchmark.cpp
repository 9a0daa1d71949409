// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a frame in the analysis worker, compared with bare transforms, and the time that planning takes.
#include "orlo/analysis/FFTProcessor.h"

#include "benchmarks/support/BestTransform.h"
#include "benchmarks/support/Measure.h"

#include <map>
#include <memory>

namespace mk::orlo::bench
{
namespace
{
constexpr int framesInCall = 16;

[[nodiscard]] std::vector<float> makeNoise (int numSamples)
{
    juce::Random random (1);
    std::vector<float> noise (static_cast<size_t> (numSamples));

    for (auto& sample : noise)
        sample = random.nextFloat() - 0.5f;

    return noise;
}

/** A worker without its thread, in noise. */
class Worker
{
public:
    Worker (int size, bool enhanced) : hop (juce::jmax (64, (size - 1) / 8))
    {
        processor.setSettings ({ { size - 1, 0, int (WindowType::hann) }, hop, enhanced, 0.0f });

        while (numPushed < 2 * size)
        {
            feed();
            processor.processAvailable();
        }
    }

    /** Does what the other threads do: takes the frames, and appends the samples of as many. */
    void feed()
    {
        while (processor.popFrame (frame))
        {
        }

        for (int i = 0; i < framesInCall; ++i, numPushed += hop)
            processor.pushSamples (noise.data() + i * hop, hop);
    }

    void analyse() { processor.processAvailable(); }

private:
    const int hop;
    const std::vector<float> noise = makeNoise (framesInCall * hop);
    FFTProcessor processor;
    Frame frame;
    int numPushed = 0;
};

/** Bare transforms, which are planned when they are first needed, since planning takes seconds. */
class Transforms
{
public:
    void plan (int size)
    {
        if (transforms[size] == nullptr)
            transforms[size] = makeBestTransform (size);
    }

    void run (int size, int count)
    {
        const auto& transform = transforms[size];

        for (int i = 0; i < count; ++i)
            transform();
    }

private:
    std::map<int, std::function<void()>> transforms;
};

void compareFrames (int size, bool enhanced, const std::shared_ptr<Transforms>& transforms)
{
    const auto worker = std::make_shared<Worker> (size, enhanced);
    const auto numTransforms = framesInCall * (enhanced ? 3 : 1);

    compare ("worker, 16 frames, " + std::to_string (size) + (enhanced ? ", Enhanced" : ", Classic"),
             { [worker] { worker->feed(); }, [worker] { worker->analyse(); } },
             { [transforms, size] { transforms->plan (size); },
               [transforms, size, numTransforms] { transforms->run (size, numTransforms); } },
             1.5);
}

} // namespace

void registerBenchmarks()
{
    const auto transforms = std::make_shared<Transforms>();

    for (const auto enhanced : { false, true })
        for (const auto size : { 256, 512, 1024, 2048, 4096, 8192 })
            compareFrames (size, enhanced, transforms);

    for (const auto size : { 256, 2048, 8192 })
        measure ("analyser, made for windows of " + std::to_string (size),
                 [size]
                 {
                     SpectralAnalyser analyser;
                     analyser.configure ({ size - 1, 0, int (WindowType::hann) });
                     benchmark::DoNotOptimize (&analyser);
                 });
}

} // namespace mk::orlo::bench
