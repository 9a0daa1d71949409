// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <optional>
#include <vector>

namespace mk::orlo::host
{

/** A parameter's id and the text of its new value. */
struct ParameterSetting
{
    juce::String id, text;

    [[nodiscard]] bool operator== (const ParameterSetting&) const = default;
};

/** A range of time in seconds, counted from the freeze: one before it starts below 0. */
struct ExploredRange
{
    double start = 0.0, length = 0.0;
};

/** Everything that the user asked for. */
struct HostOptions
{
    std::optional<juce::File> audio;  /**< Without it the demo signal plays. */
    std::optional<juce::File> plugin; /**< Without it the bundle of this build is loaded. */
    std::vector<ParameterSetting> settings;
    std::optional<double> seconds;        /**< How long to play; without it until the window is closed. */
    std::optional<double> freezeAt;       /**< When to freeze the picture, in seconds. */
    std::optional<ExploredRange> explore; /**< What to look at then. */
    std::optional<juce::File> screenshot, stateIn, stateOut, preset;
    std::optional<juce::Rectangle<int>> editorSize;
    bool showWindow = true;
    bool useSoundCard = true;
    bool showHelp = false;
};

/** Reads the arguments, without the program's name. Paths are relative to the working directory. Throws
    HostError for unknown options, bad values and options that exclude each other. Opens no file. */
[[nodiscard]] HostOptions parseHostOptions (const juce::StringArray& arguments);

/** What --help prints. */
[[nodiscard]] juce::String getHelpText();

} // namespace mk::orlo::host
