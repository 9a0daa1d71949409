// SPDX-License-Identifier: AGPL-3.0-or-later
// The cost of instances whose editors are closed: the time to construct one, the memory of each, and the audio
// callbacks of a hundred.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "benchmarks/support/Measure.h"

#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace mk::orlo::bench
{
namespace
{
constexpr int blockSize = 512;
constexpr size_t numInstances = 100;

/** The resident memory of the process in MiB. */
[[nodiscard]] double getResidentMiB()
{
    long total = 0, resident = 0;
    std::ifstream ("/proc/self/statm") >> total >> resident;
    return double (resident) * double (sysconf (_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

/** An instance that a host plays, with a block of its own. */
struct Instance
{
    Instance()
    {
        processor.prepareToPlay (48000.0, blockSize);
        buffer.clear();
    }

    void play() { processor.processBlock (buffer, midi); }

    AudioPluginAudioProcessor processor;
    juce::AudioBuffer<float> buffer { 2, blockSize };
    juce::MidiBuffer midi;
};

using Instances = std::vector<std::unique_ptr<Instance>>;

[[nodiscard]] Instances makeInstances()
{
    Instances instances;

    for (size_t i = 0; i < numInstances; ++i)
        instances.push_back (std::make_unique<Instance>());

    return instances;
}

/** Prints time and memory of constructions. To be called before anything is warmed up. */
void reportConstruction()
{
    const auto start = juce::Time::getMillisecondCounterHiRes();
    const auto first = std::make_unique<Instance>();
    const auto firstMs = juce::Time::getMillisecondCounterHiRes() - start;
    const auto before = getResidentMiB();
    const auto instances = makeInstances();

    for (const auto& instance : instances)
        instance->play();

    std::printf ("first construction: %.1f ms; each of 100 more instances: %.2f MiB (wanted 1.50)\n",
                 firstMs,
                 (getResidentMiB() - before) / double (numInstances));
}

} // namespace

void registerBenchmarks()
{
    report ("memory", reportConstruction);

    measure ("processor construction and destruction",
             []
             {
                 const AudioPluginAudioProcessor processor;
                 benchmark::DoNotOptimize (&processor);
             });

    const auto instances = std::make_shared<Instances>();
    const auto make = [instances]
    {
        if (instances->empty())
            *instances = makeInstances();
    };

    compare ("100 closed instances, a block each",
             { make,
               [instances]
               {
                   for (const auto& instance : *instances)
                       instance->play();
               } },
             { make,
               [instances]
               {
                   for (size_t i = 0; i < numInstances; ++i)
                       instances->front()->play();
               } },
             1.1);
}

} // namespace mk::orlo::bench
