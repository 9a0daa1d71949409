// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/presets/PresetMenu.h"

#include <functional>

namespace mk::pluginCore
{
class PluginProcessor;
}

namespace mk::orlo
{

/** The actions of the rows of the preset menu. Failures are not reported. [message thread] */
class PresetMenuActions
{
public:
    explicit PresetMenuActions (pluginCore::PluginProcessor& processor);

    /** The rows for the processor's current state. */
    [[nodiscard]] pluginCore::PresetMenu makeMenu() const;

    /** Carries out the row with the given id; does nothing for an id below 1, which a dismissed menu returns.
        Pass the menu that the user saw. */
    void perform (int id, const pluginCore::PresetMenu& menu);

    /** Show a page and a folder; by default in the system's browser and file manager. */
    std::function<void (const juce::URL&)> showPage;
    std::function<void (const juce::File&)> showFolder;

private:
    void save();
    void loadInit();
    void setAsDefault (const juce::File& file);

    pluginCore::PluginProcessor& processor;
    pluginCore::PresetsManager& presets;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PresetMenuActions)
};

} // namespace mk::orlo
