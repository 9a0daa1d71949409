// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <vector>

/** The parameters of the product. Saved sessions, presets and host automation refer to their identifiers,
    version hints, order and choices, so these must never change; new ones may be added. */
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

/** All sixteen, in the order that hosts see. For code that needs their ranges, choices and texts without a
    processor. */
[[nodiscard]] std::vector<std::unique_ptr<juce::RangedAudioParameter>> createParameters();

/** The same as a layout for a processor's parameter state. */
[[nodiscard]] juce::AudioProcessorValueTreeState::ParameterLayout createLayout();

/** Texts in whole decibels; a positive number typed by the user is taken as negative. */
[[nodiscard]] juce::AudioParameterFloatAttributes getGainParameterAttributes();

/** The window size for a value of fftSize, 256 .. 8192. The values of reserved choices count as 8192.
    Wait-free. */
[[nodiscard]] int getWindowSize (float fftSizeValue) noexcept;

} // namespace mk::orlo::Params
