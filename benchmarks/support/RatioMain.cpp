// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Measure.h"
#include "RatioReporter.h"
#include "WindowManager.h"

#include <juce_events/juce_events.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace mk::orlo::bench
{
namespace
{
using Rows = std::vector<std::pair<std::string, std::function<void()>>>;

/** Where registerBenchmarks() adds rows. The rows belong to main(), since they own JUCE objects, which must go before
    JUCE shuts down. */
Rows* registeredRows = nullptr;
} // namespace

void measure (const std::string& name, Program program)
{
    report (name, [name, program = std::move (program)] { RatioReporter::run (name, program); });
}

void compare (const std::string& name, Program program, Program limit, double wanted)
{
    report (name,
            [name, wanted, program = std::move (program), limit = std::move (limit)]
            { RatioReporter::run (name, program, limit, wanted); });
}

void report (const std::string& name, std::function<void()> action)
{
    registeredRows->emplace_back (name, std::move (action));
}

} // namespace mk::orlo::bench

/** Runs the rows whose name contains the argument, or all. */
int main (int argc, char** argv)
{
    using namespace mk::orlo::bench;

    const std::string filter = argc > 1 ? argv[1] : "";

    allowWindowsWithoutManager();
    const juce::ScopedJuceInitialiser_GUI juce;
    Rows rows;
    registeredRows = &rows;
    registerBenchmarks();

    std::printf ("%-52s %12s %12s %8s %8s\n", "medians", "ns", "limit ns", "ratio", "wanted");

    for (const auto& [name, run] : rows)
        if (name.find (filter) != std::string::npos)
            run();

    return 0;
}
