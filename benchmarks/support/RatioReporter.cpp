// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RatioReporter.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace mk::orlo::bench
{
namespace
{
constexpr int numRounds = 31;
constexpr double secondsInRound = 4.0e-3;
constexpr int mostCallsInRound = 1 << 20;

using Clock = std::chrono::steady_clock;

[[nodiscard]] double secondsSince (Clock::time_point start)
{
    return std::chrono::duration<double> (Clock::now() - start).count();
}

/** The seconds that a number of calls take in all. */
[[nodiscard]] double timeCalls (const Program& program, int numCalls)
{
    if (program.prepare == nullptr)
    {
        const auto start = Clock::now();

        for (int call = 0; call < numCalls; ++call)
            program.action();

        return secondsSince (start);
    }

    auto seconds = 0.0;

    for (int call = 0; call < numCalls; ++call)
    {
        program.prepare();
        const auto start = Clock::now();
        program.action();
        seconds += secondsSince (start);
    }

    return seconds;
}

/** How many calls fill a round. The calls made to find out also warm the program up. */
[[nodiscard]] int countCallsInRound (const Program& program)
{
    auto numCalls = 1;

    while (timeCalls (program, numCalls) < secondsInRound && numCalls < mostCallsInRound)
        numCalls *= 2;

    return numCalls;
}
} // namespace

double RatioReporter::median (std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t (values.size() / 2);
    std::nth_element (values.begin(), middle, values.end());
    return *middle;
}

void RatioReporter::run (const std::string& name, const Program& program)
{
    const auto numCalls = countCallsInRound (program);
    std::vector<double> nanoseconds;

    for (int round = 0; round < numRounds; ++round)
        nanoseconds.push_back (timeCalls (program, numCalls) / numCalls * 1.0e9);

    std::printf ("%-52s %12.0f\n", name.c_str(), median (nanoseconds));
}

void RatioReporter::run (const std::string& name, const Program& program, const Program& limit, double wanted)
{
    const auto numCalls = countCallsInRound (program);
    const auto numLimitCalls = countCallsInRound (limit);
    std::vector<double> ratios, nanoseconds, limitNanoseconds;

    for (int round = 0; round < numRounds; ++round)
    {
        const auto timeProgram = [&] { nanoseconds.push_back (timeCalls (program, numCalls) / numCalls * 1.0e9); };
        const auto timeLimit = [&]
        { limitNanoseconds.push_back (timeCalls (limit, numLimitCalls) / numLimitCalls * 1.0e9); };

        if (round % 2 == 0)
        {
            timeProgram();
            timeLimit();
        }
        else
        {
            timeLimit();
            timeProgram();
        }

        ratios.push_back (nanoseconds.back() / limitNanoseconds.back());
    }

    std::printf ("%-52s %12.0f %12.0f %8.2f %8.2f\n",
                 name.c_str(),
                 median (nanoseconds),
                 median (limitNanoseconds),
                 median (ratios),
                 wanted);
}

} // namespace mk::orlo::bench
