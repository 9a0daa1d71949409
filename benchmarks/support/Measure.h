// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

#include <concepts>
#include <functional>
#include <string>
#include <utility>

namespace mk::orlo::bench
{

/** Something whose time is measured. */
struct Program
{
    template <std::invocable Action>
    Program (Action actionToMeasure) : action (std::move (actionToMeasure))
    {
    }

    Program (std::function<void()> preparation, std::function<void()> actionToMeasure)
        : prepare (std::move (preparation)), action (std::move (actionToMeasure))
    {
    }

    std::function<void()> prepare; /**< Called before each call of the action and not measured; may be empty. */
    std::function<void()> action;
};

/** Defined by each program: calls the functions below for each of its rows. main() calls it after JUCE's start, since
    static initialisers may run before JUCE has registered its transforms. */
void registerBenchmarks();

/** Registers a row: the time of a program alone. */
void measure (const std::string& name, Program program);

/** Registers a row: the time of a program as a multiple of the time of another one, its limit. Both do the same number
    of things in a call. They take turns in short rounds, so what else runs on the machine disturbs both alike.

    @param name    what is printed, and what the command line's filter is compared with
    @param wanted  the ratio that is wanted at most, printed beside the measured one */
void compare (const std::string& name, Program program, Program limit, double wanted);

/** Registers a row that measures by itself, called when its turn comes. */
void report (const std::string& name, std::function<void()> action);

} // namespace mk::orlo::bench
