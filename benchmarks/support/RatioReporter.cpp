// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RatioReporter.h"

#include <algorithm>
#include <cstdio>

namespace mk::orlo::bench
{

void RatioReporter::ReportRuns (const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns (runs);

    for (const auto& run : runs)
    {
        if (run.run_type != Run::RT_Iteration || run.iterations == 0)
            continue;

        const auto& name = run.run_name.function_name;
        const auto seconds = run.real_accumulated_time / double (run.iterations);
        const auto [entry, isNew] = fastestSeconds.try_emplace (name, seconds);
        entry->second = std::min (entry->second, seconds);

        if (isNew)
            order.push_back (name);
    }
}

void RatioReporter::Finalize()
{
    std::printf ("\n%-44s %12s %12s %8s\n", "against its limit", "ns", "limit ns", "ratio");

    for (const auto& name : order)
        if (const auto limit = fastestSeconds.find (name + "/limit"); limit != fastestSeconds.end())
            std::printf ("%-44s %12.0f %12.0f %8.2f\n",
                         name.c_str(),
                         fastestSeconds[name] * 1.0e9,
                         limit->second * 1.0e9,
                         fastestSeconds[name] / limit->second);
}

} // namespace mk::orlo::bench
