// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <span>

namespace mk::pluginCore
{

/** The few colours that all others are derived from, as ARGB: neutral greys, so that nothing competes with
    the picture, and one cool accent. */
namespace palette
{
inline constexpr juce::uint32 well = 0xFF0C0C0C;       /**< the darkest backgrounds: text areas, the ground */
inline constexpr juce::uint32 strip = 0xFF101010;      /**< ruler, keyboard, black keys */
inline constexpr juce::uint32 panel = 0xFF111111;      /**< overlays and bars */
inline constexpr juce::uint32 window = 0xFF151515;     /**< the window and the settings panel */
inline constexpr juce::uint32 hairline = 0xFF1A1A1A;   /**< lines between areas */
inline constexpr juce::uint32 menu = 0xFF1E1E1E;       /**< popup menus and tags */
inline constexpr juce::uint32 control = 0xFF232323;    /**< boxes and buttons */
inline constexpr juce::uint32 highlight = 0xFF303436;  /**< the row under the mouse */
inline constexpr juce::uint32 outline = 0xFF3A3A3A;    /**< frames of controls */
inline constexpr juce::uint32 faint = 0xFF555555;      /**< thumbs of scroll bars */
inline constexpr juce::uint32 quietText = 0xFF8A8A8A;  /**< text of low importance */
inline constexpr juce::uint32 softText = 0xFFAAAAAA;   /**< help text, row labels */
inline constexpr juce::uint32 text = 0xFFEEEEEE;       /**< text and icons */
inline constexpr juce::uint32 brightText = 0xFFF2F2F2; /**< emphasised text */
inline constexpr juce::uint32 accent = 0xFF7DB9CB;     /**< focus, ticks, chosen entries, switches that are on */
inline constexpr juce::uint32 accentDeep = 0xFF2C4A54; /**< filled areas under text: chosen buttons */
inline constexpr juce::uint32 accentMid = 0xFF5F8795;  /**< marks that text may lie over: the knob of a slider */
inline constexpr juce::uint32 accentFill = 0xFF33525D; /**< the bar of a slider */
} // namespace palette

/** A colour id of a look and feel with its colour as ARGB. */
struct ColourSetting
{
    int id;
    juce::uint32 argb;
};

/** Every colour that the framework's look and feel sets. Any thread. */
[[nodiscard]] std::span<const ColourSetting> getFrameworkColours() noexcept;

/** The palette as the colour scheme of JUCE's own widgets. Any thread. */
[[nodiscard]] juce::LookAndFeel_V4::ColourScheme getColourScheme();

/** The colour moved a little towards white, each channel c to 255 - 0.9433963 * (255 - c); alpha is kept. It
    distinguishes the face of a control from its background. Any thread. */
[[nodiscard]] juce::Colour raised (juce::Colour colour) noexcept;

} // namespace mk::pluginCore
