// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The identity of a product, from which the framework names its files, its state and its web pages. */
struct ProductInfo
{
    juce::String name;
    juce::String company;
    juce::String version;
    int releaseYear = 0;

    /** The tag of the product's XML documents: the name without the characters that a tag must not contain. */
    [[nodiscard]] juce::String getXmlTag() const { return name.removeCharacters (" _-:"); }
};

} // namespace mk::pluginCore
