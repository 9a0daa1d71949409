// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/localisation/LocalisedStringsManager.h"

namespace mk::orlo
{

/** Adds this product's texts to the framework's; for a key that both have, the product's text is used. */
class LocalisedStringsManager final : public pluginCore::LocalisedStringsManager
{
public:
    bool addProductStrings (const juce::String& code) override;
};

} // namespace mk::orlo
