// SPDX-License-Identifier: AGPL-3.0-or-later
// The cost of an open window: the processor time of the whole process while the editor shows the demo signal,
// compared with that of a window that only paints one picture of the view's size at every refresh. Needs a
// display of at least 1818 by 1000. Fails if the ratio or the time to open the editor exceeds its limit.
#include "benchmarks/support/Window.h"
#include "benchmarks/support/WindowManager.h"
#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "tools/orlo-host/DemoSignal.h"

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

namespace mk::orlo::bench
{
namespace
{
constexpr int windowWidth = 1818;
constexpr int windowHeight = 1000;
constexpr double sampleRate = 48000.0;
constexpr int blockSize = 512;
constexpr double secondsEach = 4.0;
constexpr int numRounds = 3;

constexpr double mostLoadRatio = 1.5;
constexpr double mostOpeningMs = 100.0;

[[nodiscard]] double getProcessorSeconds()
{
    rusage usage {};
    getrusage (RUSAGE_SELF, &usage);
    const auto seconds = [] (const timeval& time) { return double (time.tv_sec) + double (time.tv_usec) * 1.0e-6; };
    return seconds (usage.ru_utime) + seconds (usage.ru_stime);
}

/** Processor seconds per second of running, measured after a second of warm-up. */
[[nodiscard]] double measureLoad()
{
    runLoop (1.0);
    const auto before = getProcessorSeconds();
    const auto start = juce::Time::getMillisecondCounterHiRes();
    runLoop (secondsEach);
    const auto elapsed = (juce::Time::getMillisecondCounterHiRes() - start) * 0.001;
    return (getProcessorSeconds() - before) / elapsed;
}

/** The reference: a window that only paints one picture at every refresh. */
class PictureWindow final : public juce::Component
{
public:
    PictureWindow (juce::Rectangle<int> size, juce::Image::PixelFormat format)
        : picture (format, size.getWidth(), size.getHeight(), true, juce::SoftwareImageType())
    {
        setOpaque (true);
        setSize (size.getWidth(), size.getHeight());
        addToDesktop (juce::ComponentPeer::windowIsTemporary);
        setVisible (true);
    }

    void paint (juce::Graphics& g) override { g.drawImageAt (picture, 0, 0); }

private:
    juce::Image picture;
    juce::VBlankAttachment vblank { this, [this] (double) { repaint(); } };
};

/** Plays the demo signal in real time on a thread of its own, as a host does. */
class Player final : public juce::Thread
{
public:
    explicit Player (juce::AudioProcessor& processorToFeed) : juce::Thread ("audio"), processor (processorToFeed)
    {
        startThread (Priority::highest);
    }

    ~Player() override { stopThread (1000); }

private:
    void run() override
    {
        juce::AudioBuffer<float> block (2, blockSize);
        juce::MidiBuffer midi;
        auto due = juce::Time::getMillisecondCounterHiRes();

        for (int position = 0; ! threadShouldExit(); position += blockSize)
        {
            position = position + blockSize <= signal.getNumSamples() ? position : 0;

            for (int channel = 0; channel < 2; ++channel)
                block.copyFrom (channel, 0, signal, channel, position, blockSize);

            processor.processBlock (block, midi);
            due += blockSize * 1000.0 / sampleRate;

            if (const auto left = due - juce::Time::getMillisecondCounterHiRes(); left > 0.5)
                wait (left);
        }
    }

    juce::AudioProcessor& processor;
    const juce::AudioBuffer<float> signal = host::makeDemoSignal (sampleRate);
};

void setUp (AudioPluginAudioProcessor& processor)
{
    const auto set = [&] (const char* id, const char* text)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.getValueForText (text));
    };

    set (Params::id::mode, "Enhanced");
    set (Params::id::fftSize, "2048");
    set (Params::id::ruler, "On");
    set (Params::id::keyboard, "On");
    set (Params::id::autoFreeze, "Off");
    processor.prepareToPlay (sampleRate, blockSize);
    processor.getSessionState().pluginEditorWidth = windowWidth;
    processor.getSessionState().pluginEditorHeight = windowHeight;
}

[[nodiscard]] double measureOpening (AudioPluginAudioProcessor& processor)
{
    const auto start = juce::Time::getMillisecondCounterHiRes();
    const auto editor = openEditor (processor);
    editor->getPeer()->performAnyPendingRepaintsNow();
    return juce::Time::getMillisecondCounterHiRes() - start;
}

/** The size of the picture in the editor. */
[[nodiscard]] juce::Rectangle<int> getViewBounds (AudioPluginAudioProcessor& processor)
{
    return openEditor (processor)->getMainComponent().getSpectrogramContainer().getSpectrogram().getLocalBounds();
}

/** The lowest load of several rounds. The loads are measured in turns, so that other programs affect all alike. */
struct Loads
{
    double whole = 1.0e9, closed = 1.0e9, limitArgb = 1.0e9, limitRgb = 1.0e9;
};

[[nodiscard]] Loads measureLoads (AudioPluginAudioProcessor& processor)
{
    const auto view = getViewBounds (processor);
    Loads loads;

    for (int i = 0; i < numRounds; ++i)
    {
        {
            const Player player (processor);
            {
                const auto editor = openEditor (processor);
                loads.whole = std::min (loads.whole, measureLoad());
            }
            loads.closed = std::min (loads.closed, measureLoad());
        }
        {
            const PictureWindow window (view, juce::Image::ARGB);
            loads.limitArgb = std::min (loads.limitArgb, measureLoad());
        }
        {
            const PictureWindow window (view, juce::Image::RGB);
            loads.limitRgb = std::min (loads.limitRgb, measureLoad());
        }
    }

    return loads;
}

[[nodiscard]] bool run()
{
    AudioPluginAudioProcessor processor { createEditor };
    setUp (processor);

    const auto firstOpening = measureOpening (processor);
    auto opening = firstOpening;

    for (int i = 0; i < 5; ++i)
        opening = std::min (opening, measureOpening (processor));

    std::printf ("opening the editor: %.1f ms the first time, %.1f ms at best after that\n", firstOpening, opening);

    // The limit is a picture in ARGB, the format of the view; the load of one in RGB is printed for comparison.
    const auto loads = measureLoads (processor);
    const auto ratio = loads.whole / loads.limitArgb;
    std::printf ("closed editor, audio included:  %5.1f %% of a core\n", loads.closed * 100.0);
    std::printf ("one ARGB picture at every tick: %5.1f %%\n", loads.limitArgb * 100.0);
    std::printf ("one RGB picture at every tick:  %5.1f %%\n", loads.limitRgb * 100.0);
    std::printf ("the whole editor:               %5.1f %%, ratio %.2f to ARGB, %.2f to RGB\n",
                 loads.whole * 100.0,
                 ratio,
                 loads.whole / loads.limitRgb);
    return ratio <= mostLoadRatio && firstOpening < mostOpeningMs;
}
} // namespace
} // namespace mk::orlo::bench

int main()
{
    mk::orlo::bench::allowWindowsWithoutManager();
    const juce::ScopedJuceInitialiser_GUI juce;
    return mk::orlo::bench::run() ? 0 : 1;
}
