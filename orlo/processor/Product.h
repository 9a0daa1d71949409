// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::orlo
{

/** The product's name, vendor, version and year. */
[[nodiscard]] pluginCore::ProductInfo makeProductInfo();

/** The vendor's site; the addresses of the product's pages begin with it. */
[[nodiscard]] juce::String getVendorSite();

/** The page of the manual for this version. */
[[nodiscard]] juce::URL getManualUrl (const pluginCore::PluginProcessor& processor);

} // namespace mk::orlo
