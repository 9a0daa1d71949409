// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FuzzEnvironment.h"
#include "plugin_core/files/UntrustedXml.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

#include <cstdint>
#include <cstdlib>

using namespace mk::pluginCore;

namespace
{
/** A run of the plug-in: reads what it needs as it needs it, and gives back what the file will hold. */
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

/** Any bytes at all in the settings file: the plug-in works on, and what it saves is what it reads next. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    static const mk::orlo::test::FuzzEnvironment environment;
    const auto file = environment.getHome().getChildFile ("Orlo.settings");

    if (! file.replaceWithData (data, size))
        std::abort();

    const auto saved = runOnce (file);

    // A document at the limit of what is accepted can be beyond it once it is written anew.
    if (parseUntrustedXml (file) != nullptr && ! saved.isEquivalentTo (runOnce (file)))
        std::abort();

    return 0;
}
