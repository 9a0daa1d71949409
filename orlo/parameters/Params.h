// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <vector>

/** The parameters of the product. Their identifiers, version hints, order and choices are what saved
    sessions, presets and host automation refer to: they never change, only grow. */
namespace mk::orlo::Params
{

namespace id
{
inline constexpr auto mode = "mode";
inline constexpr auto fftSize = "fftSize";
inline constexpr auto hiDPI = "hiDPI";
inline constexpr auto freeze = "freeze";
inline constexpr auto drawMode = "drawMode";
inline constexpr auto floor = "floor";
inline constexpr auto ceiling = "ceiling";
inline constexpr auto minFreq = "minFreq";
inline constexpr auto maxFreq = "maxFreq";
inline constexpr auto speed = "speed";
inline constexpr auto ruler = "ruler";
inline constexpr auto freqScale = "freqScale";
inline constexpr auto keyboard = "keyboard";
inline constexpr auto autoFreeze = "autoFreeze";
inline constexpr auto internal = "internal";
inline constexpr auto colourMap = "colourMap";
} // namespace id

/** All sixteen, in the order that hosts see. For whoever needs their ranges, choices and texts but has no
    processor to put them into. */
[[nodiscard]] std::vector<std::unique_ptr<juce::RangedAudioParameter>> createParameters();

/** The same, as a processor takes them. */
[[nodiscard]] juce::AudioProcessorValueTreeState::ParameterLayout createLayout();

/** Whole decibels; a positive number typed by the user is taken as negative. */
[[nodiscard]] juce::AudioParameterFloatAttributes getGainParameterAttributes();

/** The window size that a value of fftSize stands for, 256 .. 8192. Values of the choices held in
    reserve count as 8192. Wait-free. */
[[nodiscard]] int getWindowSize (float fftSizeValue) noexcept;

} // namespace mk::orlo::Params
