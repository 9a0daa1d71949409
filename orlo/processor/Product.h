// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::orlo
{

/** The product's name, vendor, version and year. */
[[nodiscard]] pluginCore::ProductInfo makeProductInfo();

/** The vendor's site; the addresses of the product's pages begin with it. */
[[nodiscard]] juce::String getVendorSite();

/** The manual: the page that is installed on this computer, or else the site's page for this version. Looks at the disk;
    any thread but the audio thread. */
[[nodiscard]] juce::URL getManualUrl (const pluginCore::PluginProcessor& processor);

} // namespace mk::orlo
