// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetFolders.h"

#include "PresetBases.h"

#include "plugin_core/product/ProductInfo.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto presetsName = "presets";
constexpr auto designersName = "DesignersPresets";
constexpr auto initName = "Init";
constexpr auto extension = ".mkpreset";

/** The child folder of that name, created if it is missing and the user has the rights to. */
[[nodiscard]] juce::File getOrCreateFolder (const juce::File& parent, const juce::String& name)
{
    auto folder = parent.getChildFile (name);

    if (! folder.exists())
        folder.createDirectory();

    return folder;
}

[[nodiscard]] juce::File getOrCreateProductFolder (const juce::File& base, const ProductInfo& product)
{
    return getOrCreateFolder (getOrCreateFolder (base, product.company), product.name);
}
} // namespace

std::array<juce::File, 3> PresetFolders::getRoots() const { return { factoryFolder, userFolder, designersFolder }; }

PresetFolders makePresetFolders (const ProductInfo& product)
{
    return makePresetFolders (product, getSystemPresetBase (product.company + "/" + product.name), getUserPresetBase());
}

PresetFolders makePresetFolders (const ProductInfo& product, const juce::File& systemBase, const juce::File& userBase)
{
    const auto systemFolder = getOrCreateProductFolder (systemBase, product);
    const auto factoryFolder = getOrCreateFolder (systemFolder, presetsName);

    return { factoryFolder.getFullPathName(),
             getOrCreateFolder (getOrCreateProductFolder (userBase, product), presetsName).getFullPathName(),
             getOrCreateFolder (systemFolder, designersName).getFullPathName(),
             factoryFolder.getChildFile (juce::String (initName) + extension).getFullPathName(),
             extension };
}

} // namespace mk::pluginCore
