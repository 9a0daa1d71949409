// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Measure.h"
#include "RatioReporter.h"
#include "WindowManager.h"

#include <juce_events/juce_events.h>

int main (int argc, char** argv)
{
    benchmark::Initialize (&argc, argv);

    if (benchmark::ReportUnrecognizedArguments (argc, argv))
        return 1;

    mk::orlo::bench::allowWindowsWithoutManager();
    const juce::ScopedJuceInitialiser_GUI juce;
    mk::orlo::bench::registerBenchmarks();
    mk::orlo::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks (&reporter);

    // The benchmarks own JUCE objects, which must be destroyed before JUCE shuts down.
    benchmark::ClearRegisteredBenchmarks();
    return 0;
}
