// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MkFonts.h"

#include <FrameworkFonts.h>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] juce::Typeface::Ptr load (const char* data, int size)
{
    return juce::Typeface::createSystemTypefaceFor (data, size_t (size));
}
} // namespace

LookAndFeel::MkFonts::MkFonts()
    : semiBold (load (FrameworkFonts::BarlowSemiBold_ttf, FrameworkFonts::BarlowSemiBold_ttfSize)),
      bold (load (FrameworkFonts::BarlowBold_ttf, FrameworkFonts::BarlowBold_ttfSize)),
      monospaced (load (FrameworkFonts::JetBrainsMonoMedium_ttf, FrameworkFonts::JetBrainsMonoMedium_ttfSize))
{
}

} // namespace mk::pluginCore
