// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLookAndFeel.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/icons/Icon.h"

namespace mk::orlo
{
namespace
{
using pluginCore::Icon;

constexpr float menuRadius = 4.0f;
constexpr int menuBorder = 4;
constexpr float textShare = 0.75f;
constexpr int separatorWidth = 50;
constexpr int separatorHeight = 10;
constexpr float separatorAlpha = 0.14f;
constexpr float disabledAlpha = 0.4f;

// In heights of an entry.
constexpr float sideColumn = 0.85f;
constexpr float iconShare = 0.55f;
constexpr float headerBandInset = 0.15f;
constexpr float headerTextInset = 0.2f;

[[nodiscard]] int sideColumnWidth (int itemHeight) { return juce::roundToInt (float (itemHeight) * sideColumn); }

void drawSideIcon (juce::Graphics& g, Icon icon, juce::Rectangle<int> column, juce::Colour colour)
{
    const auto side = juce::roundToInt (float (column.getHeight()) * iconShare);
    pluginCore::drawIcon (g, icon, column.withSizeKeepingCentre (side, side).toFloat(), colour);
}
} // namespace

juce::Font PluginLookAndFeel::getPopupMenuFont() { return controlFont; }
int PluginLookAndFeel::getPopupMenuBorderSize() { return menuBorder; }

void PluginLookAndFeel::preparePopupMenuWindow (juce::Component& menu)
{
    // Inside the plug-in's window the picture is visible behind the rounded corners. A menu in a desktop window
    // stays opaque, since its window would have to be recreated.
    if (! menu.isOnDesktop())
        menu.setOpaque (false);
}

void PluginLookAndFeel::drawPopupMenuBackground (juce::Graphics& g, int width, int height)
{
    g.setColour (findColour (juce::PopupMenu::backgroundColourId));
    g.fillRoundedRectangle (juce::Rectangle<int> (width, height).toFloat(), menuRadius);
}

void PluginLookAndFeel::drawPopupMenuBackgroundWithOptions (juce::Graphics& g,
                                                            int width,
                                                            int height,
                                                            const juce::PopupMenu::Options& options)
{
    // A desktop window is opaque, so pixels that are not painted would be undefined.
    if (options.getParentComponent() == nullptr)
        g.fillAll (findColour (juce::PopupMenu::backgroundColourId));

    drawPopupMenuBackground (g, width, height);
}

void PluginLookAndFeel::drawPopupMenuItem (juce::Graphics& g,
                                           const juce::Rectangle<int>& area,
                                           bool isSeparator,
                                           bool isActive,
                                           bool isHighlighted,
                                           bool isTicked,
                                           bool hasSubMenu,
                                           const juce::String& text,
                                           const juce::String& shortcutKeyText,
                                           const juce::Drawable* icon,
                                           const juce::Colour* textColour)
{
    const auto plainColour = textColour != nullptr ? *textColour : findColour (juce::PopupMenu::textColourId);

    if (isSeparator)
    {
        g.setColour (plainColour.withMultipliedAlpha (separatorAlpha));
        g.fillRect (area.reduced (menuBorder * 2, 0).withSizeKeepingCentre (area.getWidth() - menuBorder * 4, 1));
        return;
    }

    const auto isLit = isHighlighted && isActive;

    if (isLit)
    {
        g.setColour (findColour (juce::PopupMenu::highlightedBackgroundColourId));
        g.fillRoundedRectangle (area.toFloat(), menuRadius);
    }

    const auto colour = isLit ? findColour (juce::PopupMenu::highlightedTextColourId)
                              : plainColour.withMultipliedAlpha (isActive ? 1.0f : disabledAlpha);
    auto row = area;
    const auto before = row.removeFromLeft (sideColumnWidth (area.getHeight()));
    const auto after = row.removeFromRight (sideColumnWidth (area.getHeight()));

    if (icon != nullptr)
    {
        const auto side = juce::roundToInt (float (before.getHeight()) * iconShare);
        icon->drawWithin (g,
                          before.withSizeKeepingCentre (side, side).toFloat(),
                          juce::RectanglePlacement::centred,
                          isActive ? 1.0f : disabledAlpha);
    }
    else if (isTicked)
    {
        const auto accent = findColour (juce::ComboBox::focusedOutlineColourId);
        drawSideIcon (g, Icon::tick, before, accent.withMultipliedAlpha (isActive ? 1.0f : disabledAlpha));
    }

    if (hasSubMenu)
        drawSideIcon (g, Icon::arrowRight, after, colour.withMultipliedAlpha (0.7f));

    const auto font = controlFont.withHeight (float (area.getHeight()) * textShare);
    g.setColour (colour);
    g.setFont (font);
    g.drawFittedText (text, row, juce::Justification::centredLeft, 1);

    if (shortcutKeyText.isNotEmpty())
    {
        g.setColour (colour.withMultipliedAlpha (0.6f));
        g.setFont (font.withHeight (font.getHeight() * 0.8f));
        g.drawFittedText (shortcutKeyText, row, juce::Justification::centredRight, 1);
    }
}

void PluginLookAndFeel::drawPopupMenuSectionHeader (juce::Graphics& g,
                                                    const juce::Rectangle<int>& area,
                                                    const juce::String& sectionName)
{
    const auto height = float (area.getHeight());
    g.setColour (findColour (juce::PopupMenu::headerTextColourId).withAlpha (0.9f));
    g.fillRoundedRectangle (area.toFloat().reduced (0.0f, height * headerBandInset), menuRadius);

    auto row = area.reduced (0, juce::roundToInt (height * headerTextInset));
    row.removeFromLeft (sideColumnWidth (area.getHeight()));
    g.setColour (findColour (juce::PopupMenu::textColourId));
    g.setFont (getFont (Face::bold).withHeight (float (row.getHeight())));
    g.drawFittedText (sectionName, row, juce::Justification::centredLeft, 1);
}

void PluginLookAndFeel::drawPopupMenuUpDownArrow (juce::Graphics& g, int width, int height, bool isScrollUpArrow)
{
    const juce::Rectangle<int> area (width, height);
    g.setColour (findColour (juce::PopupMenu::backgroundColourId));
    g.fillRect (area);

    const auto side = std::min (height, 20);
    pluginCore::drawIcon (g,
                          isScrollUpArrow ? Icon::arrowUp : Icon::arrowDown,
                          area.withSizeKeepingCentre (side, side).toFloat(),
                          findColour (juce::PopupMenu::textColourId).withMultipliedAlpha (0.7f));
}

void PluginLookAndFeel::getIdealPopupMenuItemSize (const juce::String& text,
                                                   bool isSeparator,
                                                   int standardHeight,
                                                   int& idealWidth,
                                                   int& idealHeight)
{
    if (isSeparator)
    {
        idealWidth = separatorWidth;
        idealHeight = standardHeight > 0 ? standardHeight / 10 : separatorHeight;
        return;
    }

    idealHeight = standardHeight > 0 ? standardHeight : juce::roundToInt (controlFont.getHeight() / textShare);
    idealWidth =
        juce::GlyphArrangement::getStringWidthInt (controlFont.withHeight (float (idealHeight) * textShare), text);
}

void PluginLookAndFeel::getIdealPopupMenuItemSizeWithOptions (const juce::String& text,
                                                              bool isSeparator,
                                                              int standardHeight,
                                                              int& idealWidth,
                                                              int& idealHeight,
                                                              const juce::PopupMenu::Options&)
{
    getIdealPopupMenuItemSize (text, isSeparator, standardHeight, idealWidth, idealHeight);

    if (! isSeparator)
        idealWidth += 2 * sideColumnWidth (idealHeight);
}

} // namespace mk::orlo
