// SPDX-License-Identifier: AGPL-3.0-or-later
// The cost of an idle instance: the time to construct it, and the memory of a second one.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "benchmarks/support/Measure.h"

#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace mk::orlo::bench
{
namespace
{

/** The resident memory of the process in MiB. */
[[nodiscard]] double getResidentMiB()
{
    long total = 0, resident = 0;
    std::ifstream ("/proc/self/statm") >> total >> resident;
    return double (resident) * double (sysconf (_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

/** Prints time and memory of the first constructions. To be called once, before anything is warmed up. */
void reportMemory()
{
    const auto make = []
    {
        auto processor = std::make_unique<AudioPluginAudioProcessor>();
        processor->prepareToPlay (48000.0, 512);
        return processor;
    };

    const auto start = juce::Time::getMillisecondCounterHiRes();
    const auto first = make();
    const auto firstMs = juce::Time::getMillisecondCounterHiRes() - start;
    const auto before = getResidentMiB();
    const auto second = make();
    std::printf ("first construction: %.1f ms; second instance: %.2f MiB\n", firstMs, getResidentMiB() - before);
}

} // namespace

void registerBenchmarks()
{
    measure ("processor construction and destruction",
             [reported = false]() mutable
             {
                 if (! std::exchange (reported, true))
                     reportMemory();

                 const AudioPluginAudioProcessor processor;
                 benchmark::DoNotOptimize (&processor);
             });
}

} // namespace mk::orlo::bench
