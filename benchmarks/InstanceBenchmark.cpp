// SPDX-License-Identifier: AGPL-3.0-or-later
// What an instance costs before it does anything: time to construct, and memory of the second one.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "benchmarks/support/Measure.h"

#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace mk::orlo::bench
{
namespace
{

/** Memory of the process that is really there, in MiB. */
[[nodiscard]] double getResidentMiB()
{
    long total = 0, resident = 0;
    std::ifstream ("/proc/self/statm") >> total >> resident;
    return double (resident) * double (sysconf (_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

/** Once, before the other measurements have warmed anything up. */
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
