// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/style/Palette.h"

namespace mk::orlo
{

/** The product's own colour ids, in addition to those of JUCE and of the framework. */
namespace colourId
{
enum : int
{
    controlBackground = 0x2731072, /**< ColourMapPreviewComponent and the backgrounds of other controls */
    sideBarBackground = 0x2731200,
    buttonBarFrame = 0x2731233,   /**< the frame around a ButtonBarComponent */
    barButtonOutline = 0x2731333, /**< around a button of a ButtonBarComponent that is not joined to others */
    rulerBackground = 0x2733209,
    keyboardBackground = 0x2733300,
    keyboardWhiteKey = 0x2733301,
    keyboardBlackKey = 0x2733302,
    keyboardSeparator = 0x2733303,
    keyboardHighlight = 0x2733304,
    keyboardLabel = 0x2733305,
    panelBackground = 0x2737000, /**< SettingsComponent */
    panelHeadingText = 0x2737001,
    panelLabelText = 0x2737002,
    readoutBackground = 0x2765412,
    readoutText = 0x2765413,
    arrowsBackground = 0x2739812, /**< CyclingArrowsComponent */
    cornerGrip = 0x8994010        /**< the grip in the window's corner */
};
} // namespace colourId

/** Every colour that the product's look and feel sets in addition to those of the framework. Any thread. */
[[nodiscard]] std::span<const pluginCore::ColourSetting> getOrloColours() noexcept;

} // namespace mk::orlo
