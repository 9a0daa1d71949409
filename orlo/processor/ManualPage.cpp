// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ManualPage.h"

#include "Product.h"

#include "plugin_core/presets/PresetBases.h"

namespace mk::orlo::manual
{

std::vector<juce::File> getFolders()
{
    const auto product = makeProductInfo();
    const auto productPath = product.company + "/" + product.name;
    const auto systemBase = pluginCore::getSystemPresetBase (productPath);
    std::vector<juce::File> folders;

#if JUCE_LINUX || JUCE_BSD
    // The XDG base directory rules define the variables and their defaults; relative paths are to be ignored.
    const auto manualPath = "doc/" + product.name.toLowerCase() + "/manual";
    const auto addBelow = [&] (const juce::String& base)
    {
        if (base.startsWithChar ('/'))
            folders.push_back (juce::File (base).getChildFile (manualPath));
    };

    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory).getFullPathName();
    const auto own = juce::SystemStats::getEnvironmentVariable ("XDG_DATA_HOME", {});
    addBelow (own.startsWithChar ('/') ? own : home + "/.local/share");

    const auto all = juce::SystemStats::getEnvironmentVariable ("XDG_DATA_DIRS", {});

    for (const auto& base :
         juce::StringArray::fromTokens (all.isNotEmpty() ? all : "/usr/local/share:/usr/share", ":", {}))
        addBelow (base);

    // Another prefix than the usual ones is known from the factory presets, which the same installation has put there.
    addBelow (systemBase.getFullPathName());
#else
    for (const auto& base : { pluginCore::getUserPresetBase(), systemBase })
        folders.push_back (base.getChildFile (productPath).getChildFile ("manual"));
#endif

    return folders;
}

juce::URL choosePage (const std::vector<juce::File>& folders, const juce::URL& sitePage)
{
    for (const auto& folder : folders)
        if (const auto page = folder.getChildFile ("index.html"); page.existsAsFile())
            return juce::URL (page);

    return sitePage;
}

} // namespace mk::orlo::manual
