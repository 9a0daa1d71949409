// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LookAndFeel.h"

namespace mk::pluginCore
{

/** The typefaces of one look and feel, made from the program's own data. */
struct LookAndFeel::MkFonts
{
    MkFonts();

    juce::Typeface::Ptr semiBold, bold, monospaced;
};

} // namespace mk::pluginCore
