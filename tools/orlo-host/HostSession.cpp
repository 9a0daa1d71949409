// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HostSession.h"

#include "BuiltPlugin.h"
#include "HostError.h"
#include "PluginLoader.h"
#include "PluginParameters.h"
#include "PluginState.h"
#include "ScreenCapture.h"

namespace mk::orlo::host
{

HostSession::HostSession (HostOptions optionsToUse) : options (std::move (optionsToUse))
{
    // Loading a plug-in takes a while, so the audio is opened first: if that fails, the error comes at once.
    auto track = options.audio ? openTrack (*options.audio) : makeDemoTrack();
    plugin = loadPlugin (options.plugin.value_or (getBuiltPlugin()), track.sampleRate, loadingBlockSize);

    if (options.stateIn)
        loadState (*plugin, *options.stateIn);

    if (options.preset)
        loadPreset (*plugin, *options.preset);

    for (const auto& setting : options.settings)
        setParameter (*plugin, setting);

    player.emplace (*plugin, std::move (track));

    if (options.showWindow)
    {
        window = std::make_unique<EditorWindow> (*plugin);
        window->onClose = [this] { finish(); };

        if (options.editorSize)
            window->setEditorSize (*options.editorSize);
    }

    startOutput();

    if (options.seconds)
        startTimerFor (endTimer, *options.seconds);

    if (options.freezeAt)
        startTimerFor (freezeTimer, *options.freezeAt);
}

void HostSession::startTimerFor (int timer, double seconds)
{
    startTimer (timer, juce::jmax (1, juce::roundToInt (seconds * 1000.0)));
}

HostSession::~HostSession()
{
    for (const auto timer : { endTimer, freezeTimer, exploreTimer })
        stopTimer (timer);

    timedOutput = nullptr;
    soundCard = nullptr;
    window = nullptr;
}

void HostSession::startOutput()
{
    if (options.useSoundCard)
    {
        soundCard = std::make_unique<SoundCardOutput> (*player);

        if (soundCard->getDeviceName().isNotEmpty())
        {
            soundCard->start();
            return;
        }

        soundCard = nullptr;
    }

    timedOutput = std::make_unique<TimedOutput> (*player);
}

juce::String HostSession::describe() const
{
    return "Playing " + player->getTrackName() + " through " + plugin->getName() + ", "
           + (soundCard != nullptr ? "on " + soundCard->getDeviceName() : juce::String ("without a sound card"));
}

void HostSession::writeResults()
{
    if (failure != nullptr)
        std::rethrow_exception (failure);

    if (options.screenshot)
        writePng (captureFromScreen (window->getEditor()), *options.screenshot);

    if (options.stateOut)
        saveState (*plugin, *options.stateOut);
}

void HostSession::timerCallback (int timer)
{
    // The picture comes to rest within some refreshes of the display.
    constexpr auto secondsToRest = 0.5;

    stopTimer (timer);

    if (timer == endTimer)
    {
        finish();
        return;
    }

    try
    {
        if (timer == exploreTimer)
        {
            explore (*plugin, *options.explore);
            return;
        }

        setParameter (*plugin, { "freeze", "On" });

        if (options.explore)
            startTimerFor (exploreTimer, secondsToRest);
    }
    catch (const HostError&)
    {
        failure = std::current_exception();
        finish();
    }
}

void HostSession::finish()
{
    if (onFinished != nullptr)
        onFinished();
}

} // namespace mk::orlo::host
