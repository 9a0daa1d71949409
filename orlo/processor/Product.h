// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::orlo
{

/** The product's name, vendor, version and year. */
[[nodiscard]] inline pluginCore::ProductInfo makeProductInfo()
{
    return { "Orlo", "Morlek", ORLO_VERSION_STRING, 2025 };
}

/** The vendor's site; the addresses of the product's pages begin with it. */
inline constexpr auto vendorSite = ORLO_VENDOR_SITE;

/** The page of the manual for this version. */
[[nodiscard]] inline juce::URL getManualUrl (const pluginCore::PluginProcessor& processor)
{
    return juce::URL (processor.getReleaseNotesUrl())
        .getChildURL ("manual.html?s=orlo&v=" + processor.getProductInfo().version.removeCharacters (" \t\r\n"));
}

} // namespace mk::orlo
