// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetFolders.h"

#include "plugin_core/processor/ProductInfo.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto presetsName = "presets";
constexpr auto designersName = "DesignersPresets";
constexpr auto initName = "Init";
constexpr auto extension = ".mkpreset";

/** The child of that name, made if it is missing and may be made. */
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
    return makePresetFolders (product, getSystemPresetBase (product), getUserPresetBase());
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

//==============================================================================
#if JUCE_MAC

juce::File getSystemPresetBase (const ProductInfo&) { return juce::File ("/Library/Application Support"); }
juce::File getUserPresetBase() { return juce::File ("~/Library/Application Support"); }

#elif JUCE_WINDOWS

juce::File getSystemPresetBase (const ProductInfo&)
{
    return juce::File::getSpecialLocation (juce::File::commonApplicationDataDirectory);
}

juce::File getUserPresetBase() { return juce::File::getSpecialLocation (juce::File::userApplicationDataDirectory); }

#else

juce::File getSystemPresetBase (const ProductInfo& product)
{
    const auto folders = juce::SystemStats::getEnvironmentVariable ("XDG_DATA_DIRS", "/usr/local/share:/usr/share");

    for (const auto& path : juce::StringArray::fromTokens (folders, ":", ""))
    {
        // Relative paths have no meaning there.
        if (! juce::File::isAbsolutePath (path))
            continue;

        const juce::File folder (path);

        if (folder.getChildFile (product.company).getChildFile (product.name).getChildFile (presetsName).isDirectory())
            return folder;
    }

    return juce::File (PLUGIN_CORE_DATA_FOLDER);
}

juce::File getUserPresetBase() { return juce::File::getSpecialLocation (juce::File::userApplicationDataDirectory); }

#endif

} // namespace mk::pluginCore
