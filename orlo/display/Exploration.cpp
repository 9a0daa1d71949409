// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Exploration.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"
#include "plugin_core/text/NumberText.h"

namespace mk::orlo
{

Exploration::Exploration (AudioPluginAudioProcessor& processorToUse, SpectrogramComponent& viewToUse)
    : processor (processorToUse),
      view (viewToUse),
      explorer (viewToUse.getExplorer()),
      mode (findParameter (processorToUse, Params::id::mode)),
      fftSize (findParameter (processorToUse, Params::id::fftSize)),
      speed (findParameter (processorToUse, Params::id::speed)),
      floorGain (findParameter (processorToUse, Params::id::floor)),
      ceiling (findParameter (processorToUse, Params::id::ceiling)),
      freqScale (findParameter (processorToUse, Params::id::freqScale)),
      frequencies (processorToUse)
{
    processor.setSoundKept (true);
}

Exploration::~Exploration()
{
    explorer.end();
    processor.setSoundKept (false);
}

//==============================================================================
ExploreSettings Exploration::readSettings() const
{
    const auto range = frequencies.getRange();

    ExploreSettings settings;
    settings.hop.windowSize = Params::getWindowSize (getCurrentValue (fftSize));
    settings.hop.speed = getCurrentValue (speed);
    settings.hop.doubleResolution = view.isDoubleResolution();
    settings.hop.enhanced = juce::roundToInt (getCurrentValue (mode)) != 0;
    settings.minFreqFraction = float (range.min);
    settings.maxFreqFraction = juce::jmax (settings.minFreqFraction, float (range.max));
    settings.scaleType = juce::roundToInt (getCurrentValue (freqScale));
    settings.pointsKept = processor.getPointsKept();
    settings.source = processor.getUIView().getSource();
    settings.colours = { getCurrentValue (floorGain),
                         getCurrentValue (ceiling),
                         processor.getImageBuilder().getColourMap() };
    return settings;
}

bool Exploration::isAsFrozen (const ExploreSettings& now) const noexcept
{
    return needTheSameLevels (*frozen, now) && haveTheSameColours (*frozen, now);
}

std::shared_ptr<const KeptSound> Exploration::findSound() const { return processor.getSoundHistory().getSound(); }

FrozenPicture Exploration::findPicture (double rate, const ExploreSettings& settings) const
{
    const auto& builder = processor.getImageBuilder();
    const auto& ring = builder.getPicture();
    auto& worker = processor.getFftProcessor();
    const auto sound = findSound();

    FrozenState state;
    state.hop = settings.hop;
    state.hop.sampleRate = rate;
    state.soundEnd = sound != nullptr ? sound->getEnd() : 0;
    state.samplesWaiting = worker.getNumSamplesReady();
    state.framesWaiting = worker.getNumFramesReady();
    state.pictureWidth = ring.getWidth();
    state.writeColumn = ring.getWriteX();
    state.isScrolling = builder.isPictureScrolling();
    return findFrozenPicture (state);
}

std::optional<ExportSubject> Exploration::findSubject() const
{
    const auto isExploring = explorer.isExploring();
    const auto sound = isExploring ? explorer.getSound() : findSound();

    if (sound == nullptr || sound->getEnd() <= sound->getStart() || view.getWidth() < 1 || view.getHeight() < 1)
        return std::nullopt;

    // Of Static, the range from the oldest column to the newest.
    const auto settings = frozen.has_value() && ! isExploring ? *frozen : readSettings();
    const auto shown = findPicture (sound->getSampleRate(), settings);

    ExportSubject subject { sound, {}, settings.colours };
    auto& request = subject.request;
    setSource (request, sound, processor.getUIView().getSource());
    request.start = isExploring ? explorer.getTimeView().getStart() : shown.start;
    request.length = isExploring ? explorer.getTimeView().getLength() : shown.length;
    request.width = view.getWidth() << int (view.isDoubleResolution());
    request.height = view.getHeight() << int (view.isDoubleResolution());
    request.hop = settings.hop;
    request.hop.sampleRate = sound->getSampleRate();
    request.minFreqFraction = settings.minFreqFraction;
    request.maxFreqFraction = settings.maxFreqFraction;
    request.scaleType = settings.scaleType;
    request.pointsKept = processor.getPointsKept();
    return request.length > 0.0 ? std::optional (subject) : std::nullopt;
}

//==============================================================================
void Exploration::tick()
{
    if (! processor.isFrozen())
    {
        frozen.reset();
        valuesBefore.reset();
        end();
        return;
    }

    if (! explorer.isExploring())
        resume();

    if (! explorer.isExploring())
    {
        const auto now = readSettings();

        if (! frozen.has_value() || (! isAsFrozen (now) && ! begin()))
            frozen = now;

        return;
    }

    // A host has changed the sample rate: this sound goes no further.
    if (findSound() != explorer.getSound())
    {
        stop();
        return;
    }

    follow (readSettings());
    remember();
}

void Exploration::remember()
{
    const auto& times = explorer.getTimeView();
    auto& explored = processor.getUIView().explored;

    if (explored.get().isNotEmpty() && juce::exactlyEqual (times.getStart(), remembered.getStart())
        && juce::exactlyEqual (times.getLength(), remembered.getLength()))
        return;

    remembered = times;
    explored = juce::String (times.getSecondsAt (times.getStart()), 6) + " "
               + juce::String (times.getLength() / times.getSampleRate(), 6);
}

void Exploration::resume()
{
    const auto text = processor.getUIView().explored.get();

    if (text.isEmpty() || ! isPossible())
        return;

    const auto start = pluginCore::parseNumber (text.upToFirstOccurrenceOf (" ", false, false));
    const auto length = pluginCore::parseNumber (text.fromFirstOccurrenceOf (" ", false, false));

    if (start && length)
        changeTimeView (
            [&] (TimeView& times) {
                times.setRange (times.getSoundEnd() + *start * times.getSampleRate(), *length * times.getSampleRate());
            });
    else
        end();
}

void Exploration::end()
{
    explorer.end();

    if (auto& explored = processor.getUIView().explored; explored.get().isNotEmpty())
        explored.resetToDefault();
}

void Exploration::follow (const ExploreSettings& settings)
{
    const auto& old = explorer.getSettings();

    // At another speed the picture would show more or less time up to the same end.
    if (! juce::exactlyEqual (old.hop.speed, settings.hop.speed))
    {
        const auto ratio =
            double (planHop (settings.hop).secondsPerColumn) / double (planHop (old.hop).secondsPerColumn);
        const auto before = explorer.getTimeView();
        const auto newHome = before.getHomeLength() * ratio;

        TimeView after (before.getSoundStart(),
                        before.getSoundEnd(),
                        before.getSampleRate(),
                        before.getHomeStart() + before.getHomeLength() - newHome,
                        newHome);

        if (! before.isHome())
            after.setRange (before.getEnd() - before.getLength() * ratio, before.getLength() * ratio);

        explorer.setTimeView (after);
    }

    explorer.setSettings (settings);
}

bool Exploration::isPossible() const
{
    if (explorer.isExploring())
        return true;

    const auto sound = findSound();
    return processor.isFrozen() && sound != nullptr && sound->getEnd() > sound->getStart()
           && processor.getImageBuilder().getPicture().getWidth() > 0;
}

bool Exploration::begin()
{
    if (explorer.isExploring())
        return true;

    if (! isPossible())
        return false;

    if (! frozen.has_value())
        frozen = readSettings();

    const auto sound = findSound();
    picture = findPicture (sound->getSampleRate(), *frozen);
    valuesBefore.reset();

    // What changed since the freeze is taken over as if it had changed now.
    if (! explorer.begin (sound, picture.start, picture.length, *frozen))
        return false;

    follow (readSettings());
    return true;
}

} // namespace mk::orlo
