// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/Icon.h"

namespace mk::pluginCore
{
namespace
{
constexpr float thumbRadius = 4.0f;
constexpr float thumbMargin = 2.0f;
constexpr float thumbAlpha = 0.5f;
constexpr float thumbAlphaWithMouse = 0.8f;

// Measures of a row of a file list, as shares of its height or, for the columns, of its width.
constexpr float rowTextHeight = 0.7f;
constexpr float rowDetailHeight = 0.55f;
constexpr int leastWidthWithDetails = 450;
constexpr float sizeColumn = 0.62f;
constexpr float timeColumn = 0.78f;
} // namespace

void LookAndFeel::drawScrollbar (juce::Graphics& g,
                                 juce::ScrollBar& scrollbar,
                                 int x,
                                 int y,
                                 int width,
                                 int height,
                                 bool isVertical,
                                 int thumbStart,
                                 int thumbSize,
                                 bool isMouseOver,
                                 bool isMouseDown)
{
    const auto thumb = isVertical ? juce::Rectangle<int> (x, thumbStart, width, thumbSize)
                                  : juce::Rectangle<int> (thumbStart, y, thumbSize, height);

    if (thumb.isEmpty())
        return;

    const auto colour = scrollbar.findColour (juce::ScrollBar::thumbColourId);
    const auto withMouse = isMouseOver || isMouseDown;
    g.setColour (withMouse ? colour.brighter().withAlpha (thumbAlphaWithMouse)
                           : colour.withMultipliedAlpha (thumbAlpha));
    g.fillRoundedRectangle (thumb.toFloat().reduced (thumbMargin), thumbRadius);
}

void LookAndFeel::drawFileBrowserRow (juce::Graphics& g,
                                      int width,
                                      int height,
                                      const juce::File&,
                                      const juce::String& filename,
                                      juce::Image* fileImage,
                                      const juce::String& sizeDescription,
                                      const juce::String& timeDescription,
                                      bool isDirectory,
                                      bool isSelected,
                                      int,
                                      juce::DirectoryContentsDisplayComponent& list)
{
    using Ids = juce::DirectoryContentsDisplayComponent::ColourIds;

    const auto* component = dynamic_cast<const juce::Component*> (&list);
    const auto find = [this, component] (int id)
    { return component != nullptr ? component->findColour (id) : findColour (id); };

    if (isSelected)
        g.fillAll (find (Ids::highlightColourId));

    const auto textColour = find (isSelected ? Ids::highlightedTextColourId : Ids::textColourId);
    juce::Rectangle<int> row (width, height);
    row.reduce (height / 4, 0);

    const bool withoutFolderIcon = component != nullptr && component->getProperties()[styleProperty::noFolderIcon];

    if (! (isDirectory && withoutFolderIcon))
    {
        const auto iconArea = row.removeFromLeft (height).reduced (height / 6).toFloat();
        row.removeFromLeft (height / 4);

        if (fileImage != nullptr && fileImage->isValid())
            g.drawImage (
                *fileImage, iconArea, juce::RectanglePlacement::centred | juce::RectanglePlacement::onlyReduceInSize);
        else
            drawIcon (g, isDirectory ? Icon::folder : Icon::document, iconArea, textColour.withMultipliedAlpha (0.7f));
    }

    if (width > leastWidthWithDetails && ! isDirectory)
    {
        const auto detail = getFont (Face::semiBold).withHeight (float (height) * rowDetailHeight);
        auto times = row.removeFromRight (row.getRight() - int (float (width) * timeColumn));
        auto sizes = row.removeFromRight (row.getRight() - int (float (width) * sizeColumn));
        g.setFont (detail);
        g.setColour (findColour (colourId::fileListSecondaryText));
        g.drawFittedText (sizeDescription, sizes, juce::Justification::centredRight, 1);
        g.drawFittedText (timeDescription, times, juce::Justification::centredRight, 1);
    }

    g.setColour (textColour);
    g.setFont (getFont (Face::semiBold).withHeight (float (height) * rowTextHeight));
    g.drawFittedText (filename, row, juce::Justification::centredLeft, 1);
}

} // namespace mk::pluginCore
