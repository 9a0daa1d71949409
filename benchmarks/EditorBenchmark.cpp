// SPDX-License-Identifier: AGPL-3.0-or-later
// The cost of open windows: the processor time of the whole process while editors show the demo signal, compared with
// that of a limit, which runs in turns with it: program, limit, program, limit. The result is the median of the ratios
// of the turns. Needs a display of at least 1818 by 1000 and a few minutes. Fails if a ratio or the time to open the
// editor exceeds its limit. Usage: EditorBenchmark [row [rounds]], with a row's name in lower case.
#include "benchmarks/support/Player.h"
#include "benchmarks/support/ReferenceWindows.h"
#include "benchmarks/support/Window.h"
#include "benchmarks/support/WindowManager.h"
#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

namespace mk::orlo::bench
{
namespace
{
constexpr int windowWidth = 1818;
constexpr int windowHeight = 1000;
constexpr double sampleRate = 48000.0;
constexpr int blockSize = 512;
constexpr double warmUpSeconds = 0.5;
constexpr double secondsEach = 1.5;
constexpr int defaultRounds = 11;
constexpr double mostOpeningMs = 100.0;

using Editor = std::unique_ptr<AudioPluginAudioProcessorEditor>;

[[nodiscard]] double getProcessorSeconds()
{
    rusage usage {};
    getrusage (RUSAGE_SELF, &usage);
    const auto seconds = [] (const timeval& time) { return double (time.tv_sec) + double (time.tv_usec) * 1.0e-6; };
    return seconds (usage.ru_utime) + seconds (usage.ru_stime);
}

/** Processor seconds per second of running. */
[[nodiscard]] double measureLoad()
{
    runLoop (warmUpSeconds);
    const auto before = getProcessorSeconds();
    const auto start = juce::Time::getMillisecondCounterHiRes();
    runLoop (secondsEach);
    const auto elapsed = (juce::Time::getMillisecondCounterHiRes() - start) * 0.001;
    return (getProcessorSeconds() - before) / elapsed;
}

[[nodiscard]] double findMedian (std::vector<double> values)
{
    std::sort (values.begin(), values.end());
    return values[values.size() / 2];
}

//==============================================================================
void set (AudioPluginAudioProcessor& processor, const char* id, const char* text)
{
    auto& parameter = *processor.getParameterState().getParameter (id);
    parameter.setValueNotifyingHost (parameter.getValueForText (text));
}

[[nodiscard]] std::unique_ptr<AudioPluginAudioProcessor> makeProcessor()
{
    auto processor = std::make_unique<AudioPluginAudioProcessor> (createEditor);
    set (*processor, Params::id::mode, "Enhanced");
    set (*processor, Params::id::fftSize, "2048");
    set (*processor, Params::id::ruler, "On");
    set (*processor, Params::id::keyboard, "On");
    set (*processor, Params::id::autoFreeze, "Off");
    processor->prepareToPlay (sampleRate, blockSize);
    processor->getSessionState().pluginEditorWidth = windowWidth;
    processor->getSessionState().pluginEditorHeight = windowHeight;
    return processor;
}

/** Measures the states of the window, with the same processors for all. */
class States
{
public:
    States()
    {
        for (auto& processor : processors)
            processor = makeProcessor();

        view = openEditor (first())->getMainComponent().getSpectrogramContainer().getSpectrogram().getLocalBounds();
    }

    [[nodiscard]] AudioPluginAudioProcessor& first() { return *processors[0]; }
    [[nodiscard]] static constexpr int getNumEditors() { return int (std::tuple_size_v<decltype (processors)>); }

    [[nodiscard]] double measureRunning (const char* drawMode)
    {
        set (first(), Params::id::drawMode, drawMode);
        const Player player ({ &first() }, sampleRate, blockSize);
        const auto editor = openEditor (first());
        return measureLoad();
    }

    [[nodiscard]] double measureFrozen()
    {
        set (first(), Params::id::freeze, "On");
        const Player player ({ &first() }, sampleRate, blockSize);
        auto load = 0.0;
        {
            const auto editor = openEditor (first());
            load = measureLoad();
        }
        set (first(), Params::id::freeze, "Off");
        return load;
    }

    [[nodiscard]] double measureClosed()
    {
        const Player player ({ &first() }, sampleRate, blockSize);
        return measureLoad();
    }

    [[nodiscard]] double measureAll()
    {
        std::vector<juce::AudioProcessor*> played;
        std::vector<Editor> editors;

        for (auto& processor : processors)
        {
            set (*processor, Params::id::drawMode, "Static");
            played.push_back (processor.get());
            editors.push_back (openEditor (*processor));
        }

        const Player player (played, sampleRate, blockSize);
        return measureLoad();
    }

    [[nodiscard]] double measurePicture (juce::Image::PixelFormat format, double shortestSeconds) const
    {
        const PictureWindow window (view, format, shortestSeconds);
        return measureLoad();
    }

    [[nodiscard]] double measureIdleWindow()
    {
        const Player player ({ &first() }, sampleRate, blockSize);
        const IdleWindow window ({ windowWidth, windowHeight });
        return measureLoad();
    }

    [[nodiscard]] static double measurePlainProcessor()
    {
        PlainProcessor processor;
        const Player player ({ &processor }, sampleRate, blockSize);
        return measureLoad();
    }

private:
    std::array<std::unique_ptr<AudioPluginAudioProcessor>, 8> processors;
    juce::Rectangle<int> view;
};

//==============================================================================
struct Row
{
    const char* name;
    const char* limitName;
    std::function<double()> measure, measureLimit;
    double mostRatio;
    double mostAboveLimit = 1.0; // of a core
};

[[nodiscard]] std::vector<Row> makeRows (States& states)
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
          [&] { return States::measurePlainProcessor(); },
          1.1 },
        { "eight",
          "eight times one editor in Static",
          [&] { return states.measureAll(); },
          [&] { return States::getNumEditors() * states.measureRunning ("Static"); },
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
    States states;
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
