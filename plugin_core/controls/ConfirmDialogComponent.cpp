// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ConfirmDialogComponent.h"

#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::pluginCore
{
ConfirmDialogComponent::ConfirmDialogComponent (const juce::String& question,
                                                const juce::String& confirmText,
                                                const juce::String& cancelText)
    : questionLabel ({}, question), confirmButton (confirmText), cancelButton (cancelText)
{
    questionLabel.setJustificationType (juce::Justification::centred);
    questionLabel.getProperties().set (styleProperty::cat, 2);
    confirmButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onConfirm); };
    cancelButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onCancel); };

    for (auto* child : { static_cast<juce::Component*> (&questionLabel),
                         static_cast<juce::Component*> (&confirmButton),
                         static_cast<juce::Component*> (&cancelButton) })
        addAndMakeVisible (child);

    setWantsKeyboardFocus (true);
    colourChanged();
}

void ConfirmDialogComponent::paint (juce::Graphics& g) { g.fillAll (findColour (colourId::dialogBackground)); }

void ConfirmDialogComponent::resized()
{
    if (auto* style = dynamic_cast<LookAndFeelMethods*> (&getLookAndFeel()))
        style->layOutConfirmDialog (getLocalBounds(), questionLabel, confirmButton, cancelButton);
}

void ConfirmDialogComponent::lookAndFeelChanged()
{
    colourChanged();
    resized();
}

void ConfirmDialogComponent::colourChanged()
{
    questionLabel.setColour (juce::Label::textColourId,
                             findColourOr (*this, colourId::dialogText, getFrameworkColours()));
    repaint();
}

bool ConfirmDialogComponent::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::returnKey)
        juce::NullCheckedInvocation::invoke (onConfirm);
    else if (key == juce::KeyPress::escapeKey)
        juce::NullCheckedInvocation::invoke (onCancel);
    else
        return false;

    return true;
}

} // namespace mk::pluginCore
