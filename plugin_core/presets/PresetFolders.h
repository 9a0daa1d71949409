// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <array>

namespace mk::pluginCore
{

struct ProductInfo;

/** Where a product's presets lie. Full paths. */
struct PresetFolders
{
    juce::String factoryFolder;   /**< Filled by the installer. */
    juce::String userFolder;      /**< The user's own. */
    juce::String designersFolder; /**< Sets made by others, for all users. */
    juce::String initFile;        /**< The preset that holds the neutral state. */
    juce::String fileExtension;   /**< With its dot. */

    /** The factory's, the user's and the designers' folder, in the order that references count them. */
    [[nodiscard]] std::array<juce::File, 3> getRoots() const;
};

/** The folders of a product on this system. Folders that are missing are made, as far as the user may. */
[[nodiscard]] PresetFolders makePresetFolders (const ProductInfo& product);

/** The same below given folders for all users' and the user's application data. */
[[nodiscard]] PresetFolders
    makePresetFolders (const ProductInfo& product, const juce::File& systemBase, const juce::File& userBase);

} // namespace mk::pluginCore
