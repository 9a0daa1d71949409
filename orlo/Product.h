// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/ProductInfo.h"

namespace mk::orlo
{

/** Who this product is. */
[[nodiscard]] inline pluginCore::ProductInfo makeProductInfo()
{
    return { "Orlo", "Morlek", ORLO_VERSION_STRING, 2025 };
}

/** The vendor's site; the pages of the product hang below it. */
inline constexpr auto vendorSite = ORLO_VENDOR_SITE;

} // namespace mk::orlo
