// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LevelBar.h"

#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int levelBarGap = 3;
const juce::Colour levelLabelColour { 0xffd3d3d3 };
} // namespace

std::vector<LevelLabel> placeLevelLabels (float floorDb, float ceilingDb, int height, float spacing)
{
    std::vector<LevelLabel> labels;
    const auto top = juce::jmax (floorDb, ceilingDb), bottom = juce::jmin (floorDb, ceilingDb);

    if (! (top > bottom) || height < 1 || ! (spacing > 0.0f))
        return labels;

    const auto decibelsPerPixel = (top - bottom) / float (height);

    for (const auto step : { 1, 2, 5, 10, 20, 50, 100 })
        if (float (step) >= spacing * decibelsPerPixel)
        {
            for (auto level = int (std::floor (top / float (step))) * step; float (level) >= bottom; level -= step)
                labels.push_back ({ level, (top - float (level)) / decibelsPerPixel });

            break;
        }

    return labels;
}

LevelBar::LevelBar (Explorer& explorerToShow) : explorer (explorerToShow)
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setTitle (juce::translate ("Colours of the levels"));
    setOpaque (true);
    setMouseClickGrabsKeyboardFocus (false);
    explorer.addListener (this);
}

LevelBar::~LevelBar() { explorer.removeListener (this); }

void LevelBar::paint (juce::Graphics& g)
{
    g.fillAll (pluginCore::findColourOr (*this, colourId::rulerBackground, getOrloColours()));
    const auto& colours = explorer.getSettings().colours;

    if (! explorer.isExploring() || colours.map == nullptr || getHeight() < 1)
        return;

    const auto font = makeStripFont (*this);
    const auto top = juce::jmax (colours.floorDb, colours.ceilingDb);
    const auto range = top - juce::jmin (colours.floorDb, colours.ceilingDb);
    const auto bar = getLocalBounds().withTrimmedLeft (levelBarGap).withWidth (juce::jmax (4, getWidth() / 5));

    for (int y = 0; y < getHeight(); ++y)
    {
        const auto level = StillPicture::levelFor (
            top - range * (float (y) + 0.5f) / float (getHeight()), colours.floorDb, colours.ceilingDb);
        g.setColour (juce::Colour (colours.map->pixelForLevel (level)));
        g.fillRect (bar.getX(), y, bar.getWidth(), 1);
    }

    g.setColour (levelLabelColour);
    g.setFont (font);
    const auto lineHeight = font.getHeight();
    const auto left = bar.getRight() + levelBarGap;

    for (const auto& label : placeLevelLabels (colours.floorDb, colours.ceilingDb, getHeight(), lineHeight * 3.0f))
    {
        // The labels at the ends are moved inwards.
        const auto y =
            juce::jlimit (0.0f, juce::jmax (0.0f, float (getHeight()) - lineHeight), label.y - lineHeight * 0.5f);
        g.drawFittedText (
            juce::String (label.decibels),
            juce::Rectangle<float> (float (left), y, float (getWidth() - left), lineHeight).toNearestInt(),
            juce::Justification::centredLeft,
            1,
            narrowestTextScale);
    }
}

std::unique_ptr<juce::AccessibilityHandler> LevelBar::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::image);
}

} // namespace mk::orlo
