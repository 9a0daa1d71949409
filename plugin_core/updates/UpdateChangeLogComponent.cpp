// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UpdateChangeLogComponent.h"

#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::pluginCore
{
namespace
{
constexpr juce::uint8 dimAlpha = 0x66;
constexpr float cornerShare = 0.02f;
constexpr float frameAlpha = 0.5f;
constexpr float rowShare = 0.12f;
constexpr int gapsPerRow = 3;
constexpr int titleCategory = 1;
} // namespace

UpdateChangeLogComponent::UpdateChangeLogComponent()
    : onDownload ([] (const juce::URL& page) { static_cast<void> (page.launchInDefaultBrowser()); }),
      titleLabel ({}, juce::translate ("An update is available") + ":"),
      downloadButton (juce::translate ("proceed to download page")),
      closeButton (juce::translate ("close"))
{
    titleLabel.getProperties().set (styleProperty::cat, titleCategory);
    titleLabel.setJustificationType (juce::Justification::centredLeft);
    titleLabel.setBorderSize ({});
    downloadButton.onClick = [this] { download(); };
    closeButton.onClick = [this] { close(); };

    for (auto* const child : { static_cast<juce::Component*> (&titleLabel),
                               static_cast<juce::Component*> (&textArea),
                               static_cast<juce::Component*> (&downloadButton),
                               static_cast<juce::Component*> (&closeButton) })
        addAndMakeVisible (child);

    setTitle (juce::translate ("An update is available"));
    textArea.setTitle (getTitle());
    setWantsKeyboardFocus (true);
    setFocusContainerType (FocusContainerType::keyboardFocusContainer);
    colourChanged();
}

void UpdateChangeLogComponent::announce()
{
    juce::AccessibilityHandler::postAnnouncement (getTitle(), juce::AccessibilityHandler::AnnouncementPriority::medium);
}

void UpdateChangeLogComponent::download()
{
    if (! downloadUrl.isEmpty())
        juce::NullCheckedInvocation::invoke (onDownload, downloadUrl);

    close();
}

void UpdateChangeLogComponent::close() { juce::NullCheckedInvocation::invoke (onClose); }

//==============================================================================
int UpdateChangeLogComponent::getButtonHeight (juce::Rectangle<int> panel) noexcept
{
    return juce::roundToInt (float (panel.getHeight()) * rowShare);
}

UpdateChangeLogComponent::Layout UpdateChangeLogComponent::makeLayout (juce::Rectangle<int> bounds,
                                                                       juce::Rectangle<float> panelBounds,
                                                                       int downloadWidth,
                                                                       int closeWidth)
{
    Layout layout;
    layout.panel = bounds.getProportion (panelBounds);

    const auto rowHeight = getButtonHeight (layout.panel);
    const auto gap = rowHeight / gapsPerRow;
    auto inner = layout.panel.reduced (gap);
    auto row = inner.removeFromBottom (rowHeight);
    const auto room = juce::jmax (0, row.getWidth() - gap);

    if (const auto wanted = downloadWidth + closeWidth; wanted > room)
    {
        downloadWidth = room * downloadWidth / wanted;
        closeWidth = room - downloadWidth;
    }

    layout.download = row.removeFromLeft (downloadWidth);
    layout.close = row.removeFromRight (closeWidth);
    layout.title = inner.removeFromTop (rowHeight);
    inner.removeFromBottom (gap);
    layout.text = inner.withTrimmedTop (gap / 2);
    return layout;
}

void UpdateChangeLogComponent::resized()
{
    const auto height = getButtonHeight (getLocalBounds().getProportion (panelBounds));
    const auto layout = makeLayout (getLocalBounds(),
                                    panelBounds,
                                    downloadButton.getBestWidthForHeight (height),
                                    closeButton.getBestWidthForHeight (height));
    titleLabel.setBounds (layout.title);
    textArea.setBounds (layout.text);
    downloadButton.setBounds (layout.download);
    closeButton.setBounds (layout.close);
}

void UpdateChangeLogComponent::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colours::black.withAlpha (dimAlpha));

    const auto panel = getLocalBounds().getProportion (panelBounds).toFloat();
    const auto radius = float (getWidth()) * cornerShare;
    const auto colour = findColourOr (*this, colourId::overlayBackground, getFrameworkColours());

    g.setColour (colour);
    g.fillRoundedRectangle (panel, radius);
    g.setColour (colour.withAlpha (frameAlpha));
    g.drawRoundedRectangle (panel, radius, 1.0f);
}

// The look and feel is inherited from the parent.
void UpdateChangeLogComponent::parentHierarchyChanged() { lookAndFeelChanged(); }

void UpdateChangeLogComponent::lookAndFeelChanged()
{
    colourChanged();
    resized();
}

void UpdateChangeLogComponent::colourChanged()
{
    const auto id = colourId::overlayBackground;

    if (isColourSpecified (id) || getLookAndFeel().isColourSpecified (id))
    {
        const auto ground = findColour (id);
        textArea.setColour (colourId::textViewBackground, ground.darker (0.1f));
        textArea.setColour (colourId::textViewOutline, ground.withMultipliedAlpha (0.8f));
    }

    titleLabel.setColour (juce::Label::textColourId,
                          findColourOr (*this, colourId::overlayText, getFrameworkColours()));
    repaint();
}

bool UpdateChangeLogComponent::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::escapeKey)
        close();
    else if (key == juce::KeyPress::returnKey)
        download();
    else
        return textArea.keyPressed (key);

    return true;
}

std::unique_ptr<juce::AccessibilityHandler> UpdateChangeLogComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::dialogWindow);
}

} // namespace mk::pluginCore
