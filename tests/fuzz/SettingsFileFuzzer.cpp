// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FuzzEnvironment.h"
#include "plugin_core/files/UntrustedXml.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

#include <cstdint>
#include <cstdlib>

using namespace mk::pluginCore;

namespace
{
/** A run of the plug-in: reads the settings as it needs them, and returns what the file will hold. */
[[nodiscard]] juce::ValueTree runOnce (const juce::File& file)
{
    PluginGlobalSettings::InnerData data (file);
    const auto settings = data.getSettings();

    for (const auto& key : { SettingsIds::preferedMap, SettingsIds::defaultWidth, SettingsIds::lastVersionCheck })
        juce::ignoreUnused (int (settings[key]), settings[key].toString().getLargeIntValue());

    data.getSettings().setProperty (SettingsIds::defaultWidth, "1200", nullptr);
    return settings.createCopy();
}
} // namespace

/** With arbitrary bytes in the settings file, the plug-in keeps working, and reads next what it has saved. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    static const mk::orlo::test::FuzzEnvironment environment;
    const auto file = environment.getHome().getChildFile ("Orlo.settings");

    if (! file.replaceWithData (data, size))
        std::abort();

    const auto saved = runOnce (file);

    // A document just within the limits can exceed them when it is written again.
    if (parseUntrustedXml (file) != nullptr && ! saved.isEquivalentTo (runOnce (file)))
        std::abort();

    return 0;
}
