// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace mk::orlo::bench
{

/** Prints, after the usual table, the ratio of each measurement to its limit.

    The limit of a benchmark named "x" is the one named "x/limit". Each is repeated; the ratio is that of the
    fastest repetitions, which other programs on the machine disturb least.
*/
class RatioReporter final : public benchmark::ConsoleReporter
{
public:
    void ReportRuns (const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    std::map<std::string, double> fastestSeconds;
    std::vector<std::string> order;
};

} // namespace mk::orlo::bench
