// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RunRender.h"

#include "OutputFile.h"
#include "RenderError.h"
#include "orlo/parameters/Params.h"
#include "orlo/stills/NpyWriter.h"
#include "orlo/stills/PngWriter.h"

#include <cmath>
#include <optional>

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

void checkSize (const RenderPlan& plan, int height)
{
    if (plan.analysis.samplesPerFrame < 1)
        throw RenderError ("the sample rate is too low for this speed");

    if (plan.width < 1 || plan.width > largestSide)
        throw RenderError ("the picture would be " + juce::String (plan.numColumns) + " pixels wide; more than "
                               + juce::String (largestSide) + " are not possible without --width",
                           RenderError::usage);

    if (std::int64_t (plan.width) * height > mostPixels)
        throw RenderError ("a picture of " + juce::String (plan.width) + " by " + juce::String (height)
                               + " pixels is too large; " + juce::String (mostPixels) + " pixels are possible",
                           RenderError::usage);
}
} // namespace

void run (const RenderOptions& options, const Progress& progress)
{
    AudioSource source (options.input);
    const auto settings = makeSettings (options, source.getSampleRate());
    const auto plan = makePlan (makeRequest (options, source, settings.hop));
    checkSize (plan, settings.height);

    OutputFile picture (options.picture);
    std::optional<OutputFile> levelsFile;

    if (options.levels != juce::File())
        levelsFile.emplace (options.levels);

    const auto numThreads = options.numThreads > 0 ? options.numThreads : juce::SystemStats::getNumCpus();
    const auto levels = renderLevels (source, plan, settings, numThreads, progress);

    if (levelsFile)
        writeNpy (levels, levelsFile->getStream());

    const ColourMap map (unsigned (getIndex (options.parameters, Params::id::colourMap)));
    writePng (paintPicture (levels, map, settings.floorDb > settings.ceilingDb, numThreads), picture.getStream());

    picture.commit();

    if (levelsFile)
        levelsFile->commit();
}

} // namespace mk::orlo::render
