// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::orlo::lookSheet
{

/** Each sheet is a component with a fixed size, made to be put into a plug-in window. [message thread] */
[[nodiscard]] std::unique_ptr<juce::Component> makeIconSheet();
[[nodiscard]] std::unique_ptr<juce::Component> makeTextSheet();
[[nodiscard]] std::unique_ptr<juce::Component> makeMenuSheet();

/** The controls in all their states, and the side bar and the settings panel as in the plug-in's window.
    Everything is scaled for a window of the given width in pixels. */
[[nodiscard]] std::unique_ptr<juce::Component> makeWidgetSheet (int editorWidth);

/** The plug-in's window with its settings panel open, in each language and at several sizes, and with the
    preset menu open. */
void forEachPanel (const std::function<void (const juce::String& name, juce::Component& window)>& show);

} // namespace mk::orlo::lookSheet
