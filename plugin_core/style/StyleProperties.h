// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The names in juce::Component::getProperties by which a component controls how it is drawn. They are read
    at each paint, so code that changes one has to call repaint(). */
namespace mk::pluginCore::styleProperty
{

inline const juce::Identifier cat { "cat" };                     /**< int: the size class of the text, 0 to 4 */
inline const juce::Identifier fontScale { "fontScale" };         /**< double: factor on the text's height */
inline const juce::Identifier bold { "bold" };                   /**< bool: the bold face */
inline const juce::Identifier vertical { "vertical" };           /**< bool: the label's text reads upwards */
inline const juce::Identifier justification { "justification" }; /**< "left" or "right": a slider's value text */
inline const juce::Identifier bg { "bg" };                       /**< bool: a filled ground behind an icon */
inline const juce::Identifier noShadows { "noShadows" };         /**< bool: an icon without its shadow */
inline const juce::Identifier numCol { "numCol" };               /**< int: least number of a popup's columns */
inline const juce::Identifier grad { "grad" };                   /**< bool: text with a gradient */
inline const juce::Identifier gradYProp { "gradYProp" };         /**< double: shift of it, in label heights */
inline const juce::Identifier reversed { "reversed" };           /**< bool: a bar filled from its maximum end */
inline const juce::Identifier buttonSlider { "buttonSlider" };   /**< bool: a slider as a bar with its value on it */
inline const juce::Identifier labelAbove { "labelAbove" };       /**< bool: a slider's value text above it */
inline const juce::Identifier noFolderIcon { "noFolderIcon" };   /**< bool: file rows without folder icons */
inline const juce::Identifier rotate { "rotate" };               /**< bool: a FilledPathButton that turns */
inline const juce::Identifier animateOnMouseDown { "animateOnMouseDown" }; /**< bool: it turns at a press */

} // namespace mk::pluginCore::styleProperty
