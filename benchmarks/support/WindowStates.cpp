// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WindowStates.h"

#include "Player.h"
#include "ReferenceWindows.h"
#include "Window.h"
#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"

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

void set (AudioPluginAudioProcessor& processor, const char* id, const char* text)
{
    auto& parameter = *processor.getParameterState().getParameter (id);
    parameter.setValueNotifyingHost (parameter.getValueForText (text));
}
} // namespace

std::unique_ptr<AudioPluginAudioProcessor> makeProcessor()
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

WindowStates::WindowStates()
{
    for (auto& processor : processors)
        processor = makeProcessor();

    view = openEditor (first())->getMainComponent().getSpectrogramContainer().getSpectrogram().getLocalBounds();
}

double WindowStates::measureRunning (const char* drawMode)
{
    set (first(), Params::id::drawMode, drawMode);
    const Player player ({ &first() }, sampleRate, blockSize);
    const auto editor = openEditor (first());
    return measureLoad();
}

double WindowStates::measureFrozen()
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

double WindowStates::measureClosed()
{
    const Player player ({ &first() }, sampleRate, blockSize);
    return measureLoad();
}

double WindowStates::measureAll()
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

double WindowStates::measurePicture (juce::Image::PixelFormat format, double shortestSeconds) const
{
    const PictureWindow window (view, format, shortestSeconds);
    return measureLoad();
}

double WindowStates::measureIdleWindow()
{
    const Player player ({ &first() }, sampleRate, blockSize);
    const IdleWindow window ({ windowWidth, windowHeight });
    return measureLoad();
}

double WindowStates::measurePlainProcessor()
{
    PlainProcessor processor;
    const Player player ({ &processor }, sampleRate, blockSize);
    return measureLoad();
}

} // namespace mk::orlo::bench
