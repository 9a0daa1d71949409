// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

/** Scales text heights and corner radii with the width of the plug-in's window. Sizes are given for the
    design width of 1818 pixels. The functions without a component may be called from any thread, the
    others from the message thread. */
namespace mk::pluginCore::scaleRule
{

inline constexpr float designWidth = 1818.0f;
inline constexpr int defaultCategory = 2;

/** The width in pixels of the plug-in window that the component is in, without counting the component
    itself; nothing if it is in none. */
[[nodiscard]] std::optional<int> editorWidthAbove (const juce::Component& component);

/** A design size in pixels, in a window of the given width; without one the design size itself. */
[[nodiscard]] float scaled (float designSize, std::optional<int> editorWidth) noexcept;

/** The radius of a control's corners in pixels: 10 at the design width, and without a window. */
[[nodiscard]] float cornerRadius (std::optional<int> editorWidth) noexcept;
[[nodiscard]] float cornerRadius (const juce::Component& component);

/** The height of text of a size class, in design pixels: 55, 40, 33, 33, 25 for 0 to 4, else 36. */
[[nodiscard]] float categoryHeight (int category) noexcept;

/** The height of text in pixels. */
[[nodiscard]] float textHeight (int category, double fontScale, std::optional<int> editorWidth) noexcept;

/** The same with the properties cat (2 if absent) and fontScale (1 if absent) of the component. */
[[nodiscard]] float textHeight (const juce::Component& component);

/** The same, at least 15 pixels so that it can be read, but at most the component's height. */
[[nodiscard]] float legibleTextHeight (const juce::Component& component);

/** The size class of a component's text. */
[[nodiscard]] int categoryOf (const juce::Component& component);

} // namespace mk::pluginCore::scaleRule
