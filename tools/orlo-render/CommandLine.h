// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterValues.h"
#include "SourceChoice.h"
#include "orlo/analysis/PointsKept.h"

#include <optional>

namespace mk::orlo::render
{

/** The widest and the highest picture, in pixels. */
inline constexpr int largestSide = 32767;

/** The most threads that can be asked for. */
inline constexpr int mostThreads = 256;

/** Everything that the user asked for. */
struct RenderOptions
{
    juce::File input, picture;
    juce::File levels; /**< Where the levels go; no file if none are asked for. */
    ParameterValues parameters;
    SourceChoice source; /**< Which channels are shown. */
    PointsKept pointsKept = PointsKept::all;
    int height = 1024;                     /**< Pixels. */
    int width = 0;                         /**< Pixels; 0: one for each column. */
    double startSeconds = 0.0;             /**< Where in the file the picture starts. */
    bool exact = false;                    /**< Whether a pixel shows exactly its share of the duration. */
    std::optional<double> durationSeconds; /**< Up to the file's end if there is none. */
    int numThreads = 0;                    /**< 0: one for each processor. */
};

/** The result of reading a command line. */
struct CommandLine
{
    enum class Action
    {
        render,
        showHelp,
        showVersion
    };

    Action action = Action::render;
    RenderOptions options;
};

/** Reads the arguments, without the program's name. Throws RenderError for a command line that makes no sense.
    Opens no file. */
[[nodiscard]] CommandLine parseCommandLine (const juce::StringArray& arguments);

/** What --help prints. */
[[nodiscard]] juce::String getHelpText();

} // namespace mk::orlo::render
