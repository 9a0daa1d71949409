// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TimeStrip.h"

#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
constexpr float timeLabelGap = 4.0f;
constexpr int timeTickHeight = 4;
const juce::Colour timeLabelColour { 0xffd3d3d3 };
const juce::Colour besideWindow { 0xb0000000 };
} // namespace

TimeStrip::TimeStrip (Explorer& explorerToShow) : explorer (explorerToShow), overview (explorerToShow)
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setTitle (juce::translate ("Time strip"));
    setDescription (juce::translate ("The kept sound, with the part that is shown"));
    setHelpText (juce::translate ("Arrow keys move, plus and minus zoom, Escape goes back to the frozen picture"));
    setOpaque (true);
    setWantsKeyboardFocus (true);
    setMouseClickGrabsKeyboardFocus (false);
    overview.onChanged = [this] { repaint (overviewArea); };
    explorer.addListener (this);
}

TimeStrip::~TimeStrip() { explorer.removeListener (this); }

//==============================================================================
bool TimeStrip::hasBars() const
{
    const auto sound = explorer.getSound();

    if (sound == nullptr)
        return false;

    const auto notes = sound->getHostNotes();
    return std::any_of (notes.begin(), notes.end(), [] (const HostNote& note) { return note.isKnown(); });
}

void TimeStrip::setUnit (Unit newUnit)
{
    unit = newUnit;
    rangeChanged();
}

void TimeStrip::rangeChanged()
{
    rebuildTicks();
    repaint();

    if (auto* const handler = explorer.isExploring() ? getAccessibilityHandler() : nullptr)
        handler->notifyAccessibilityEvent (juce::AccessibilityEvent::valueChanged);
}

void TimeStrip::rebuildTicks()
{
    ticks.clear();

    if (! explorer.isExploring() || getWidth() < 1)
        return;

    const auto& view = explorer.getTimeView();
    const auto labelWidth = juce::roundToInt (font.getHeight() * 5.0f);

    if (unit == Unit::bars)
        ticks = makeBarTicks (view, explorer.getSound()->getHostNotes(), getWidth(), labelWidth);

    // Where the host has told nothing, seconds are better than no ruler.
    if (ticks.empty())
        ticks = makeSecondTicks (view, getWidth(), labelWidth);
}

juce::String TimeStrip::describeRange() const
{
    if (! explorer.isExploring())
        return {};

    const auto& view = explorer.getTimeView();
    const auto step = view.getLength() / view.getSampleRate() * 0.01;
    return formatSeconds (view.getSecondsAt (view.getStart()), step) + " .. "
           + formatSeconds (view.getSecondsAt (view.getEnd()), step);
}

//==============================================================================
void TimeStrip::resized()
{
    font = makeStripFont (*this);
    auto area = getLocalBounds();
    rulerArea =
        area.removeFromTop (juce::jmin (getHeight(), juce::roundToInt (font.getHeight() * 1.5f) + timeTickHeight));
    overviewArea = area.withTrimmedBottom (juce::jmin (2, area.getHeight()));
    overview.setSize (overviewArea.getWidth(), overviewArea.getHeight());
    rebuildTicks();
    repaint();
}

void TimeStrip::paint (juce::Graphics& g)
{
    g.fillAll (pluginCore::findColourOr (*this, colourId::rulerBackground, getOrloColours()));

    if (! explorer.isExploring())
        return;

    paintRuler (g);
    paintOverview (g);

    if (hasKeyboardFocus (false))
    {
        g.setColour (findColour (juce::ComboBox::focusedOutlineColourId));
        g.drawRect (getLocalBounds());
    }
}

void TimeStrip::paintRuler (juce::Graphics& g) const
{
    g.setFont (font);
    const auto width = float (getWidth());
    auto freeFrom = 0.0f;

    for (const auto& tick : ticks)
    {
        const auto x = float (tick.share) * width;
        g.setColour (juce::Colour (pluginCore::palette::faint));
        g.fillRect (
            juce::jlimit (0.0f, width - 1.0f, std::floor (x)), float (rulerArea.getY()), 1.0f, float (timeTickHeight));

        // Labels are centred under their marks, and moved inwards at the ends.
        const auto textWidth = juce::GlyphArrangement::getStringWidth (font, tick.text);
        const auto left = juce::jlimit (2.0f, juce::jmax (2.0f, width - textWidth - 2.0f), x - textWidth * 0.5f);

        if (left < freeFrom)
            continue;

        g.setColour (timeLabelColour);
        g.drawText (tick.text,
                    juce::Rectangle<float> (left,
                                            float (rulerArea.getY() + timeTickHeight),
                                            textWidth + 1.0f,
                                            float (rulerArea.getHeight() - timeTickHeight)),
                    juce::Justification::centredLeft,
                    false);
        freeFrom = left + textWidth + timeLabelGap;
    }
}

void TimeStrip::paintOverview (juce::Graphics& g) const
{
    const auto area = overviewArea.toFloat();
    g.setColour (juce::Colours::black);
    g.fillRect (area);

    if (const auto& image = overview.getImage(); image.isValid())
        g.drawImage (image, area, juce::RectanglePlacement::stretchToFit);

    const auto window = getWindow();
    const auto left = area.getX() + float (window.getLeft());
    const auto right = area.getX() + float (window.getRight());

    g.setColour (besideWindow);
    g.fillRect (area.withRight (left));
    g.fillRect (area.withLeft (right));

    g.setColour (juce::Colour (pluginCore::palette::accent));
    g.drawRect (area.withLeft (left).withRight (right), 1.0f);

    // Handles, where they do not cover the window.
    if (right - left > 16.0f)
        for (const auto x : { left, right - 3.0f })
            g.fillRect (x, area.getCentreY() - area.getHeight() * 0.2f, 3.0f, area.getHeight() * 0.4f);
}

} // namespace mk::orlo
