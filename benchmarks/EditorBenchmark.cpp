// SPDX-License-Identifier: AGPL-3.0-or-later
// The cost of open windows: the processor time of the whole process while editors show the demo signal, compared with
// that of a limit, which runs in turns with it: program, limit, program, limit. The result is the median of the ratios
// of the turns. Needs a display of at least 1818 by 1000 and a few minutes. Fails if a ratio or the time to open the
// editor exceeds its limit. Usage: EditorBenchmark [row [rounds]], with a row's name in lower case.
#include "benchmarks/support/Window.h"
#include "benchmarks/support/WindowManager.h"
#include "benchmarks/support/WindowStates.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace mk::orlo::bench
{
namespace
{
constexpr int defaultRounds = 11;
constexpr double mostOpeningMs = 100.0;

[[nodiscard]] double findMedian (std::vector<double> values)
{
    std::sort (values.begin(), values.end());
    return values[values.size() / 2];
}

//==============================================================================
struct Row
{
    const char* name;
    const char* limitName;
    std::function<double()> measure, measureLimit;
    double mostRatio;
    double mostAboveLimit = 1.0; // of a core
};

[[nodiscard]] std::vector<Row> makeRows (WindowStates& states)
{
    constexpr auto sixtyTimes = 1.0 / 60.0 - 0.001; // with room for the jitter of a display of 60 Hz

    return {
        { "static",
          "an ARGB picture at every tick",
          [&] { return states.measureRunning ("Static"); },
          [&] { return states.measurePicture (juce::Image::ARGB, 0.0); },
          0.2 },
        { "scroll",
          "an RGB picture 60 times a second",
          [&] { return states.measureRunning ("Scroll"); },
          [&] { return states.measurePicture (juce::Image::RGB, sixtyTimes); },
          1.15 },
        { "frozen",
          "a window that does nothing",
          [&] { return states.measureFrozen(); },
          [&] { return states.measureIdleWindow(); },
          1.5,
          0.005 },
        { "closed",
          "a processor that does nothing",
          [&] { return states.measureClosed(); },
          [&] { return WindowStates::measurePlainProcessor(); },
          1.1 },
        { "eight",
          "eight times one editor in Static",
          [&] { return states.measureAll(); },
          [&] { return WindowStates::getNumEditors() * states.measureRunning ("Static"); },
          1.0 },
    };
}

[[nodiscard]] bool measureRow (const Row& row, int numRounds)
{
    std::vector<double> loads, limits, ratios, differences;

    for (int i = 0; i < numRounds; ++i)
    {
        loads.push_back (row.measure());
        limits.push_back (row.measureLimit());
        ratios.push_back (loads.back() / limits.back());
        differences.push_back (loads.back() - limits.back());
    }

    const auto [lowest, highest] = std::minmax_element (ratios.begin(), ratios.end());
    const auto ratio = findMedian (ratios);
    const auto isWithin = ratio <= row.mostRatio && findMedian (differences) <= row.mostAboveLimit;
    std::printf ("%-7s %6.2f %%   %-33s %6.2f %%   %5.2f (%.2f to %.2f)   wanted %.2f%s\n",
                 row.name,
                 findMedian (loads) * 100.0,
                 row.limitName,
                 findMedian (limits) * 100.0,
                 ratio,
                 *lowest,
                 *highest,
                 row.mostRatio,
                 isWithin ? "" : "   EXCEEDED");
    std::fflush (stdout);
    return isWithin;
}

[[nodiscard]] double measureOpening (AudioPluginAudioProcessor& processor)
{
    const auto start = juce::Time::getMillisecondCounterHiRes();
    const auto editor = openEditor (processor);
    editor->getPeer()->performAnyPendingRepaintsNow();
    return juce::Time::getMillisecondCounterHiRes() - start;
}

[[nodiscard]] bool measureOpenings()
{
    const auto processor = makeProcessor();
    const auto firstOpening = measureOpening (*processor);
    auto opening = firstOpening;

    for (int i = 0; i < 5; ++i)
        opening = std::min (opening, measureOpening (*processor));

    std::printf ("opening the editor: %.1f ms the first time, %.1f ms at best after that\n", firstOpening, opening);
    return firstOpening < mostOpeningMs;
}

[[nodiscard]] bool run (const juce::String& wantedRow, int numRounds)
{
    auto isWithin = measureOpenings();
    WindowStates states;
    std::printf ("%-7s %8s   %-33s %8s   ratio\n", "state", "a core", "limit", "a core");

    for (const auto& row : makeRows (states))
        if (wantedRow.isEmpty() || wantedRow == row.name)
            isWithin = measureRow (row, numRounds) && isWithin;

    return isWithin;
}
} // namespace
} // namespace mk::orlo::bench

int main (int argc, char** argv)
{
    mk::orlo::bench::allowWindowsWithoutManager();
    const juce::ScopedJuceInitialiser_GUI juce;
    const auto numRounds = argc > 2 ? std::max (1, std::atoi (argv[2])) : mk::orlo::bench::defaultRounds;
    return mk::orlo::bench::run (argc > 1 ? argv[1] : "", numRounds) ? 0 : 1;
}
