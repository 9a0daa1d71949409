// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace mk::orlo::bench
{

/** Each program's own: calls measure() for everything that it measures. Called once JUCE is up; static
    initialisers would run before JUCE has registered its transforms. */
void registerBenchmarks();

/** Registers a benchmark of an action, repeated so that the fastest run can be told. */
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
