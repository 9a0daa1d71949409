// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace mk::orlo::bench
{

/** Defined by each program: calls measure() for each of its benchmarks. main() calls it after JUCE's start, since
    static initialisers may run before JUCE has registered its transforms. */
void registerBenchmarks();

/** Registers a benchmark of an action. It is repeated, so that the fastest run can be used. */
template <typename Action>
void measure (const std::string& name, Action action)
{
    benchmark::RegisterBenchmark (name.c_str(),
                                  [action] (benchmark::State& state) mutable
                                  {
                                      for (auto _ : state)
                                          action();
                                  })
        ->Repetitions (5)
        ->MinTime (0.1)
        ->ReportAggregatesOnly (false);
}

} // namespace mk::orlo::bench
