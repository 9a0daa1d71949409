// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <array>

namespace mk::pluginCore
{

struct ProductInfo;

/** The full paths of a product's preset folders. */
struct PresetFolders
{
    juce::String factoryFolder;   /**< Filled by the installer. */
    juce::String userFolder;      /**< The user's own. */
    juce::String designersFolder; /**< Sets made by others, for all users. */
    juce::String initFile;        /**< The preset that holds the neutral state. */
    juce::String fileExtension;   /**< Includes the dot. */

    /** The factory, user and designers folders, in the order of the root indices in references. */
    [[nodiscard]] std::array<juce::File, 3> getRoots() const;
};

/** The folders of a product on this system. Missing folders are created if the user has the rights to. */
[[nodiscard]] PresetFolders makePresetFolders (const ProductInfo& product);

/** The same below given folders for all users' and the user's application data. */
[[nodiscard]] PresetFolders
    makePresetFolders (const ProductInfo& product, const juce::File& systemBase, const juce::File& userBase);

} // namespace mk::pluginCore
