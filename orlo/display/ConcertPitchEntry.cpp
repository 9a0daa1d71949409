// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ConcertPitchEntry.h"

#include "StripText.h"
#include "orlo/state/TuningSettings.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
ConcertPitchEntry::ConcertPitchEntry()
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    field.setTitle (juce::translate ("Concert pitch in hertz"));
    field.setTooltip (juce::translate ("Type the frequency of A4 and press Return"));
    field.setJustification (juce::Justification::centred);
    field.setInputRestrictions (10);
    field.setPopupMenuEnabled (false); // a right click opens the menu of the picture
    field.onReturnKey = [this] { accept(); };
    field.onEscapeKey = [this] { close(); };
    field.onFocusLost = [this] { close(); };
    label.setText (juce::translate ("A4") + " (" + juce::translate ("Hz") + ")", juce::dontSendNotification);
    label.setJustificationType (juce::Justification::centred);
    addAndMakeVisible (label);
    addAndMakeVisible (field);
}

void ConcertPitchEntry::open (double currentPitch)
{
    auto* const parent = getParentComponent();
    jassert (parent != nullptr);

    const auto font = findScaleFont (*this).withHeight (pluginCore::scaleRule::legibleTextHeight (*this));
    const auto lineHeight = juce::roundToInt (font.getHeight() * 1.6f);
    label.setFont (font);
    label.setColour (juce::Label::textColourId,
                     pluginCore::findColourOr (*this, colourId::readoutText, getOrloColours()));
    field.applyFontToAllText (font);
    setBounds (parent->getLocalBounds().withSizeKeepingCentre (8 * lineHeight, 2 * lineHeight));
    setVisible (true);
    toFront (false);
    field.setText (data::formatConcertPitch (currentPitch), false);

    if (field.isShowing())
        field.grabKeyboardFocus();

    field.selectAll();
}

void ConcertPitchEntry::accept()
{
    const auto pitch = data::parseConcertPitch (field.getText());

    if (! pitch)
    {
        field.selectAll();
        return;
    }

    close();

    if (onEntered != nullptr)
        onEntered (*pitch);
}

void ConcertPitchEntry::close()
{
    // Without the focus, keys go to the host again; losing it closes the field once more.
    if (! isVisible())
        return;

    field.giveAwayKeyboardFocus();
    setVisible (false);
}

void ConcertPitchEntry::paint (juce::Graphics& g)
{
    g.setColour (pluginCore::findColourOr (*this, colourId::readoutBackground, getOrloColours()));
    g.fillRoundedRectangle (getLocalBounds().toFloat(), float (getHeight()) * 0.1f);
}

void ConcertPitchEntry::resized()
{
    auto area = getLocalBounds().reduced (getHeight() / 12);
    label.setBounds (area.removeFromTop (area.getHeight() / 2));
    field.setBounds (area);
}

} // namespace mk::orlo
