// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** A bar with the current preset's name, for products that show one. [message thread] */
class PresetsBar : public juce::Component
{
public:
    /** Implemented by a look and feel that draws the bar. */
    struct LookAndFeelMethods
    {
        virtual ~LookAndFeelMethods() = default;
        virtual void drawPresetsBar (juce::Graphics& g, PresetsBar& bar) = 0;
    };
};

} // namespace mk::pluginCore
