// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::pluginCore::colourId
{

/** The framework's own colour ids, in addition to those of JUCE. Their colours are in Palette.cpp. */
enum : int
{
    // Pages that cover the window, such as the update notice.
    overlayBackground = 0xC89320,
    overlayText = 0xC89321,

    // ConfirmDialogComponent
    dialogBackground = 0xC89B10,
    dialogText = 0xC89B11,

    // DisplayTextComponent
    textViewBackground = 0xCBDEF31,
    textViewOutline = 0xCBDEF32,
    textViewText = 0xCBDEF33,

    // TooltipDisplayComponent
    tooltipBackground = 0xC32AADA,
    tooltipText = 0xC32AADB,
    tooltipBoldText = 0xC32AADC,
    tooltipDefaultText = 0xC32AADD,
    tooltipOutline = 0xC32AADE,

    // The background behind everything, and the marks of focused and linked items.
    ground = 0x6780200,
    focusOutline = 0xCEF0210,
    linkText = 0xCEF14A0,

    // PresetsBar
    presetsBarBackground = 0xC324433,
    presetsBarText = 0xC324434,

    // PluginHeaderComponent
    headerBackground = 0xC321192,
    headerText = 0xC321193,
    headerOutline = 0xC321194,

    // File lists
    fileListBackground = 0xC19910,
    fileListSecondaryText = 0xC19911,

    // FilledPathButton
    pathButtonBackground = 0x1320100,
    pathButtonBackgroundOver = 0x1320101,
    pathButtonBackgroundDown = 0x1320102,
    pathButtonPath = 0x1320103,
    pathButtonPathOver = 0x1320104,
    pathButtonPathDown = 0x1320105,
    pathButtonFocusOutline = 0x1320106
};

} // namespace mk::pluginCore::colourId
