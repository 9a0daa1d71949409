// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RunRender.h"

#include "OutputFile.h"
#include "RenderError.h"
#include "orlo/parameters/Params.h"
#include "orlo/stills/MakeStill.h"
#include "orlo/stills/NpyWriter.h"
#include "orlo/stills/PngWriter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace mk::orlo::render
{
namespace
{
// 134 million pixels need about a gigabyte for levels and colours.
constexpr std::int64_t mostPixels = std::int64_t (1) << 27;

[[nodiscard]] int getIndex (const ParameterValues& parameters, const char* id)
{
    return juce::roundToInt (parameters.get (id));
}

[[nodiscard]] RenderSettings makeSettings (const RenderOptions& options, double sampleRate)
{
    const auto& parameters = options.parameters;

    RenderSettings settings;
    settings.hop.windowSize = Params::getWindowSize (parameters.get (Params::id::fftSize));
    settings.hop.sampleRate = sampleRate;
    settings.hop.speed = parameters.get (Params::id::speed);
    settings.hop.doubleResolution = getIndex (parameters, Params::id::hiDPI) == 1;
    settings.hop.enhanced = getIndex (parameters, Params::id::mode) != 0;
    settings.floorDb = parameters.get (Params::id::floor);
    settings.ceilingDb = parameters.get (Params::id::ceiling);
    settings.minFreqFraction = parameters.getFrequencyFraction (Params::id::minFreq, sampleRate);
    settings.maxFreqFraction = parameters.getFrequencyFraction (Params::id::maxFreq, sampleRate);
    settings.scaleType = getIndex (parameters, Params::id::freqScale);
    settings.height = options.height;
    settings.pointsKept = options.pointsKept;
    return settings;
}

/** Seconds to samples. Very long times are limited, so that two results can be added without overflow. */
[[nodiscard]] std::int64_t toSamples (double seconds, double sampleRate)
{
    return std::int64_t (std::llround (std::min (seconds * sampleRate, 1.0e18)));
}

[[nodiscard]] PlanRequest makeRequest (const RenderOptions& options, const AudioSource& source, const HopSettings& hop)
{
    const auto rate = source.getSampleRate();

    PlanRequest request;
    request.hop = hop;
    request.width = options.width;
    request.start = toSamples (options.startSeconds, rate);
    request.length = source.getLength() - request.start;

    if (request.length < 1)
        throw RenderError ("--start " + juce::String (options.startSeconds) + " lies behind the end of '"
                               + options.input.getFileName() + "', which lasts "
                               + juce::String (double (source.getLength()) / rate, 3) + " s",
                           RenderError::usage);

    if (options.durationSeconds)
        request.length = std::clamp<std::int64_t> (toSamples (*options.durationSeconds, rate), 1, request.length);

    return request;
}

void checkWidth (const RenderPlan& plan)
{
    if (plan.width < 1 || plan.width > largestSide)
        throw RenderError ("the picture would be " + juce::String (plan.numColumns) + " pixels wide; more than "
                               + juce::String (largestSide) + " are not possible without --width",
                           RenderError::usage);
}

void checkArea (int width, int height)
{
    if (std::int64_t (width) * height > mostPixels)
        throw RenderError ("a picture of " + juce::String (width) + " by " + juce::String (height)
                               + " pixels is too large; " + juce::String (mostPixels) + " pixels are possible",
                           RenderError::usage);
}

/** The levels of the engine's columns, merged into the width. */
[[nodiscard]] LevelGrid renderColumns (AudioSource& source,
                                       const PlanRequest& request,
                                       const RenderSettings& settings,
                                       int numThreads,
                                       const Progress& progress)
{
    const auto plan = makePlan (request);

    if (plan.analysis.samplesPerFrame < 1)
        throw RenderError ("the sample rate is too low for this speed");

    checkWidth (plan);
    checkArea (plan.width, settings.height);
    return renderLevels (source, plan, settings, numThreads, progress);
}

/** The levels of a picture whose pixels show exactly their share of the time. */
[[nodiscard]] LevelGrid renderExactly (const std::shared_ptr<AudioSource>& source,
                                       const PlanRequest& range,
                                       const RenderSettings& settings,
                                       int numThreads,
                                       const Progress& progress)
{
    checkArea (range.width, settings.height);

    StillRequest request;
    request.source = source;
    request.start = double (range.start);
    request.length = double (range.length);
    request.width = range.width;
    request.height = settings.height;
    request.hop = settings.hop;
    request.minFreqFraction = settings.minFreqFraction;
    request.maxFreqFraction = settings.maxFreqFraction;
    request.scaleType = settings.scaleType;
    request.pointsKept = settings.pointsKept;

    const auto still = makeStill (request, numThreads, progress);

    if (still == nullptr)
        throw RenderError ("interrupted", RenderError::interrupted);

    return still->getLevels (settings.floorDb, settings.ceilingDb);
}
/** Keeps the louder level of each pixel. The louder a pixel of Classic is, the lower its level if the floor is above the
    ceiling; of Enhanced's points the one of the higher level shows, as in a single picture. */
void keepLouder (LevelGrid& levels, const LevelGrid& others, bool isInverted)
{
    std::vector<float> column (size_t (levels.getHeight()));

    for (int x = 0; x < levels.getWidth(); ++x)
    {
        const auto kept = levels.getColumn (x), other = others.getColumn (x);

        for (size_t y = 0; y < column.size(); ++y)
            column[y] = isInverted ? std::min (kept[y], other[y]) : std::max (kept[y], other[y]);

        levels.setColumn (x, column);
    }
}

/** The signals of the file that are shown: one for each channel if the loudest of them is. */
[[nodiscard]] std::vector<std::shared_ptr<AudioSource>> openSources (const RenderOptions& options)
{
    if (options.source.source != Source::loudest)
        return { std::make_shared<AudioSource> (options.input, options.source) };

    std::vector<std::shared_ptr<AudioSource>> sources;
    auto numChannels = 1;

    for (int channel = 0; channel < numChannels; ++channel)
    {
        sources.push_back (std::make_shared<AudioSource> (options.input, SourceChoice { Source::mean, channel }));
        numChannels = sources.front()->getNumChannels();
    }

    return sources;
}

[[nodiscard]] LevelGrid renderSources (const RenderOptions& options,
                                       const std::vector<std::shared_ptr<AudioSource>>& sources,
                                       const PlanRequest& request,
                                       const RenderSettings& settings,
                                       const Progress& progress)
{
    const auto numThreads = options.numThreads > 0 ? options.numThreads : juce::SystemStats::getNumCpus();
    const auto isInverted = ! settings.hop.enhanced && settings.floorDb > settings.ceilingDb;
    std::optional<LevelGrid> loudest;

    for (size_t i = 0; i < sources.size(); ++i)
    {
        const auto progressOfAll = [&] (double share)
        { return progress ((double (i) + share) / double (sources.size())); };

        auto levels = options.exact ? renderExactly (sources[i], request, settings, numThreads, progressOfAll)
                                    : renderColumns (*sources[i], request, settings, numThreads, progressOfAll);

        if (loudest)
            keepLouder (*loudest, levels, isInverted);
        else
            loudest = std::move (levels);
    }

    return std::move (*loudest);
}
} // namespace

void run (const RenderOptions& options, const Progress& progress)
{
    const auto sources = openSources (options);
    const auto& source = *sources.front();
    const auto settings = makeSettings (options, source.getSampleRate());
    const auto request = makeRequest (options, source, settings.hop);
    const auto numThreads = options.numThreads > 0 ? options.numThreads : juce::SystemStats::getNumCpus();

    OutputFile picture (options.picture);
    std::optional<OutputFile> levelsFile;

    if (options.levels != juce::File())
        levelsFile.emplace (options.levels);

    const auto levels = renderSources (options, sources, request, settings, progress);

    if (levelsFile)
        writeNpy (levels, levelsFile->getStream());

    const ColourMap map (unsigned (getIndex (options.parameters, Params::id::colourMap)));
    writePng (paintPicture (levels, map, settings.floorDb > settings.ceilingDb, numThreads), picture.getStream());

    picture.commit();

    if (levelsFile)
        levelsFile->commit();
}

} // namespace mk::orlo::render
