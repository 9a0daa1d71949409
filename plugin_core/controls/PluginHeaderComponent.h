// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/presets/PresetsManager.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** A header line above the window's content, for products that have one. [message thread] */
class PluginHeaderComponent : public juce::Component,
                              public juce::Timer,
                              public juce::ChangeListener,
                              public juce::Button::Listener,
                              public PresetsManager::Listener
{
public:
    /** Implemented by a look and feel that draws the header. */
    struct LookAndFeelMethods
    {
        virtual ~LookAndFeelMethods() = default;
        virtual void drawPluginHeader (juce::Graphics& g, PluginHeaderComponent& header) = 0;
    };
};

} // namespace mk::pluginCore
