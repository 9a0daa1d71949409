// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FilledPathButton.h"

#include <utility>

namespace mk::pluginCore
{

FilledPathButton::FilledPathButton (const juce::String& buttonName, juce::Path pathToFill)
    : ComponentIgnoringRightButton (buttonName), path (std::move (pathToFill))
{
}

void FilledPathButton::setPath (juce::Path newPath)
{
    path = std::move (newPath);
    repaint();
}

void FilledPathButton::paintButton (juce::Graphics& g, bool isOver, bool isDown)
{
    if (auto* style = dynamic_cast<LookAndFeelMethods*> (&getLookAndFeel()))
        style->drawFilledPathButton (g, *this, path, isOver, isDown);
}

} // namespace mk::pluginCore
