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

/** What the rows of the preset menu do. What cannot be done is left alone without a word. [message thread] */
class PresetMenuActions
{
public:
    explicit PresetMenuActions (pluginCore::PluginProcessor& processor);

    /** The rows for the processor as it is now. */
    [[nodiscard]] pluginCore::PresetMenu makeMenu() const;

    /** Does what the row with the given id stands for; nothing for an id below 1, which a dismissed menu
        gives. The menu is the one that the user saw. */
    void perform (int id, const pluginCore::PresetMenu& menu);

    /** How a page and a folder are shown; by the system's browser and file manager unless set. */
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
