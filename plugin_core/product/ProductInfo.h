// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Who a product is: what the framework needs to know to name its files, its state and its pages. */
struct ProductInfo
{
    juce::String name;
    juce::String company;
    juce::String version;
    int releaseYear = 0;

    /** The tag of the product's XML documents: the name without the characters that a tag must not hold. */
    [[nodiscard]] juce::String getXmlTag() const { return name.removeCharacters (" _-:"); }
};

} // namespace mk::pluginCore
