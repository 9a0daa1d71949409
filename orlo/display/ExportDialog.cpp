// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ExportDialog.h"

#include "orlo/style/OrloColours.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
constexpr int numRows = 6;
constexpr int paperGroup = 1;
constexpr auto labelShare = 0.3f;

/** The number in a field, if it is within the limits. */
[[nodiscard]] std::optional<int> readSide (const juce::TextEditor& field, int largest)
{
    const auto value = field.getText().getIntValue();
    return value >= ExportSettings::smallestSide && value <= largest ? std::optional (value) : std::nullopt;
}
} // namespace

ExportDialog::ExportDialog()
{
    getProperties().set (pluginCore::styleProperty::cat, 2);
    setTitle (juce::translate ("Export picture"));
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);
    setWantsKeyboardFocus (true);
    setUpFields();
    setUpButtons();
    updateChoices();
}

void ExportDialog::setUpFields()
{
    const auto add = [this] (juce::Label& label, const juce::String& text, juce::Justification justification)
    {
        label.setText (text, juce::dontSendNotification);
        label.setJustificationType (justification);
        addAndMakeVisible (label);
    };

    add (heading, juce::translate ("Export picture"), juce::Justification::centredLeft);
    add (sizeLabel, juce::translate ("Size"), juce::Justification::centredLeft);
    add (timesLabel, juce::String::fromUTF8 ("\xc3\x97"), juce::Justification::centred);
    add (titleLabel, juce::translate ("Title"), juce::Justification::centredLeft);
    add (axesLabel, juce::translate ("Axes"), juce::Justification::centredLeft);
    add (paperLabel, juce::translate ("Paper"), juce::Justification::centredLeft);

    constexpr int mostDigits = 5, longestTitle = 200;
    widthField.setTitle (juce::translate ("Width in pixels"));
    widthField.setInputRestrictions (mostDigits, "0123456789");
    heightField.setTitle (juce::translate ("Height in pixels"));
    heightField.setInputRestrictions (mostDigits, "0123456789");
    titleField.setTitle (juce::translate ("Title"));
    titleField.setInputRestrictions (longestTitle);

    for (auto* const field : { &widthField, &heightField, &titleField })
    {
        field->setPopupMenuEnabled (false); // a right click opens the menu of the picture
        field->setSelectAllWhenFocused (true);
        field->onReturnKey = [this] { accept(); };
        field->onEscapeKey = [this] { close(); };
        field->setIndents (8, 0);
        field->setJustification (juce::Justification::centredLeft);
        addAndMakeVisible (field);
    }

    for (auto* const field : { &widthField, &heightField })
        field->onTextChange = [this] { isSizeChosen = true; };
}

void ExportDialog::setUpButtons()
{
    const auto add = [this] (juce::TextButton& button, const juce::String& text, const juce::String& title)
    {
        button.setButtonText (text);
        button.setTitle (title);
        addAndMakeVisible (button);
    };

    add (axesButton, juce::translate ("On"), juce::translate ("Axes"));
    add (lightButton, juce::translate ("Light"), juce::translate ("Light paper"));
    add (darkButton, juce::translate ("Dark"), juce::translate ("Dark paper"));
    add (acceptButton, juce::translate ("Export..."), juce::translate ("Export..."));
    add (cancelButton, juce::translate ("Cancel"), juce::translate ("Cancel"));

    for (auto* const button : { &axesButton, &lightButton, &darkButton })
        button->setClickingTogglesState (true);

    lightButton.setRadioGroupId (paperGroup);
    darkButton.setRadioGroupId (paperGroup);
    lightButton.setToggleState (true, juce::dontSendNotification);
    axesButton.setToggleState (true, juce::dontSendNotification);
    axesButton.onClick = [this] { updateChoices(); };
    acceptButton.onClick = [this] { accept(); };
    cancelButton.onClick = [this] { close(); };
}

void ExportDialog::updateChoices()
{
    const auto hasAxes = axesButton.getToggleState();
    axesButton.setButtonText (hasAxes ? juce::translate ("On") : juce::translate ("Off"));

    // Title and paper lie around the spectrogram.
    for (auto* const component : { static_cast<juce::Component*> (&titleField),
                                   static_cast<juce::Component*> (&lightButton),
                                   static_cast<juce::Component*> (&darkButton) })
        component->setEnabled (hasAxes);
}

//==============================================================================
void ExportDialog::setDefaultSize (int width, int height)
{
    if (isSizeChosen)
        return;

    widthField.setText (juce::String (juce::jlimit (ExportSettings::smallestSide, ExportSettings::largestWidth, width)),
                        false);
    heightField.setText (
        juce::String (juce::jlimit (ExportSettings::smallestSide, ExportSettings::largestHeight, height)), false);
}

void ExportDialog::open()
{
    auto* const parent = getParentComponent();
    jassert (parent != nullptr);

    const auto line = juce::roundToInt (1.7f * pluginCore::scaleRule::legibleTextHeight (*parent));
    setBounds (parent->getLocalBounds().withSizeKeepingCentre (juce::jmin (parent->getWidth(), 15 * line),
                                                               juce::jmin (parent->getHeight(), (numRows + 2) * line)));
    setVisible (true);
    toFront (false);
    lookAndFeelChanged();

    if (isShowing())
        widthField.grabKeyboardFocus();
}

std::optional<ExportSettings> ExportDialog::getSettings() const
{
    const auto width = readSide (widthField, ExportSettings::largestWidth);
    const auto height = readSide (heightField, ExportSettings::largestHeight);

    if (! width || ! height)
        return std::nullopt;

    return ExportSettings {
        *width, *height, titleField.getText(), axesButton.getToggleState(), lightButton.getToggleState()
    };
}

void ExportDialog::accept()
{
    const auto settings = getSettings();

    if (! settings)
    {
        auto& wrong = readSide (widthField, ExportSettings::largestWidth) ? heightField : widthField;

        if (wrong.isShowing())
            wrong.grabKeyboardFocus();

        wrong.selectAll();
        return;
    }

    close();

    if (onAccepted != nullptr)
        onAccepted (*settings);
}

void ExportDialog::close()
{
    // Without the focus, keys go to the host again.
    if (auto* const focused = getCurrentlyFocusedComponent(); focused != nullptr && isParentOf (focused))
        focused->giveAwayKeyboardFocus();

    setVisible (false);
}

bool ExportDialog::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::returnKey)
        accept();
    else if (key == juce::KeyPress::escapeKey)
        close();
    else
        return false;

    return true;
}

//==============================================================================
void ExportDialog::paint (juce::Graphics& g)
{
    const auto area = getLocalBounds().toFloat();
    const auto radius = pluginCore::scaleRule::cornerRadius (*this);
    g.setColour (
        pluginCore::findColourOr (*this, pluginCore::colourId::dialogBackground, pluginCore::getFrameworkColours()));
    g.fillRoundedRectangle (area, radius);
    g.setColour (juce::Colour (pluginCore::palette::outline));
    g.drawRoundedRectangle (area.reduced (0.5f), radius, 1.0f);
}

void ExportDialog::lookAndFeelChanged()
{
    const auto height = float (getHeight()) / float (numRows + 2) * 0.55f;
    const auto font = pluginCore::LookAndFeel::getFontFor (*this, pluginCore::LookAndFeel::Face::semiBold)
                          .withHeight (juce::jmax (8.0f, height));

    for (auto* const label : { &heading, &sizeLabel, &timesLabel, &titleLabel, &axesLabel, &paperLabel })
    {
        label->setFont (font);
        label->setColour (
            juce::Label::textColourId,
            pluginCore::findColourOr (*this, pluginCore::colourId::dialogText, pluginCore::getFrameworkColours()));
    }

    for (auto* const field : { &widthField, &heightField, &titleField })
        field->applyFontToAllText (font);
}

void ExportDialog::resized()
{
    const auto line = getHeight() / (numRows + 2);
    auto area = getLocalBounds().reduced (line, juce::jmax (1, line / 2));
    const auto gap = juce::jmax (1, line / 8);
    const auto rowHeight = area.getHeight() / numRows;
    const auto labelWidth = int (float (area.getWidth()) * labelShare);
    const auto nextRow = [&] { return area.removeFromTop (rowHeight).reduced (0, gap); };

    heading.setBounds (nextRow());

    auto row = nextRow();
    sizeLabel.setBounds (row.removeFromLeft (labelWidth));
    const auto fieldWidth = (row.getWidth() - line) / 2;
    widthField.setBounds (row.removeFromLeft (fieldWidth));
    timesLabel.setBounds (row.removeFromLeft (line));
    heightField.setBounds (row);

    row = nextRow();
    titleLabel.setBounds (row.removeFromLeft (labelWidth));
    titleField.setBounds (row);

    row = nextRow();
    axesLabel.setBounds (row.removeFromLeft (labelWidth));
    axesButton.setBounds (row.removeFromLeft (fieldWidth));

    row = nextRow();
    paperLabel.setBounds (row.removeFromLeft (labelWidth));
    lightButton.setBounds (row.removeFromLeft (fieldWidth));
    row.removeFromLeft (line);
    darkButton.setBounds (row);

    row = nextRow();
    row.removeFromLeft (labelWidth);
    acceptButton.setBounds (row.removeFromLeft (fieldWidth));
    row.removeFromLeft (line);
    cancelButton.setBounds (row);
    lookAndFeelChanged();
}

} // namespace mk::orlo
