// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Product.h"

#include "ManualPage.h"

namespace mk::orlo
{

pluginCore::ProductInfo makeProductInfo() { return { "Orlo", "Morlek", ORLO_VERSION_STRING, 2025 }; }

juce::String getVendorSite() { return ORLO_VENDOR_SITE; }

juce::URL getManualUrl (const pluginCore::PluginProcessor& processor)
{
    const auto version = processor.getProductInfo().version.removeCharacters (" \t\r\n");
    return manual::choosePage (
        manual::getFolders(),
        juce::URL (processor.getReleaseNotesUrl()).getChildURL ("manual.html?s=orlo&v=" + version));
}

} // namespace mk::orlo
