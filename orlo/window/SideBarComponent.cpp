// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SideBarComponent.h"

#include "SideBarLayout.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo
{
namespace
{
using pluginCore::Icon;

constexpr int closedIndent = 3;
constexpr float openIndentShare = 0.11f;
constexpr float dimmedAlpha = 0.7f;

/** Gives a button its tooltip and its accessibility title. */
void setUp (juce::DrawableButton& button, const juce::String& title, const juce::String& tooltip)
{
    button.setEdgeIndent (closedIndent);
    button.setTitle (title);
    button.setTooltip (tooltip);
}
} // namespace

SideBarComponent::SideBarComponent (AudioPluginAudioProcessor& processorToUse)
    : processor (processorToUse),
      freezeValue (*processorToUse.getParameterState().getRawParameterValue (Params::id::freeze)),
      settingsButton ("settings", juce::DrawableButton::ImageFitted),
      exportButton ("export", juce::DrawableButton::ImageFitted),
      aboutButton ("about", juce::DrawableButton::ImageFitted)
{
    pluginCore::setIcon (settingsButton, Icon::settings);
    setUp (settingsButton, juce::translate ("Settings"), juce::translate ("Show or hide settings panel"));
    settingsButton.setClickingTogglesState (true);
    settingsButton.onClick = [this] { settingsClicked(); };
    addAndMakeVisible (settingsButton);

    auto freeze = std::make_unique<IconButton> ("freeze", juce::DrawableButton::ImageFitted);
    freezeButton = freeze.get();
    pluginCore::setSwitchIcon (*freezeButton, Icon::freeze);
    setUp (*freezeButton, juce::translate ("Freeze"), {});
    freezeControl = std::make_unique<pluginCore::PluginToggleControl> (
        processor, Params::id::freeze, freeze.release(), juce::translate ("Freeze"), juce::translate ("Unfreeze"));
    addAndMakeVisible (*freezeControl);

    const auto exportText = juce::translate ("Export as PNG");
    pluginCore::setIcon (exportButton, Icon::exportPicture);
    setUp (exportButton, exportText, exportText);
    exportButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onExportClicked); };
    addChildComponent (exportButton);

    const auto aboutText = juce::translate ("About");
    pluginCore::setIcon (aboutButton, Icon::about);
    setUp (aboutButton, aboutText, aboutText);
    aboutButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onAboutClicked); };
    addAndMakeVisible (aboutButton);

    poll();
}

bool SideBarComponent::isFrozen() const
{
    return processor.isAutoPaused() || freezeValue.load (std::memory_order_relaxed) >= 0.5f;
}

int SideBarComponent::getSettingsIndent (bool isPanelOpen, int buttonHeight) noexcept
{
    return isPanelOpen ? juce::roundToInt (float (buttonHeight) * openIndentShare) : closedIndent;
}

float SideBarComponent::getFreezeAlpha (bool isAutoPaused, bool isFreezeOn) noexcept
{
    return isAutoPaused && ! isFreezeOn ? dimmedAlpha : 1.0f;
}

void SideBarComponent::settingsClicked()
{
    updateSettingsIndent();
    settingsButton.repaint();
    juce::NullCheckedInvocation::invoke (onSettingsToggled, settingsButton.getToggleState());
}

void SideBarComponent::updateSettingsIndent()
{
    settingsButton.setEdgeIndent (getSettingsIndent (settingsButton.getToggleState(), settingsButton.getHeight()));
}

// The audio thread may write the values read here and must not post a message, so they are polled.
void SideBarComponent::poll()
{
    const auto isFreezeOn = freezeValue.load (std::memory_order_relaxed) >= 0.5f;
    exportButton.setVisible (isFrozen());
    freezeButton->setAlpha (getFreezeAlpha (processor.isAutoPaused(), isFreezeOn));
}

void SideBarComponent::paint (juce::Graphics& g)
{
    g.fillAll (findColour (colourId::sideBarBackground));
    g.setColour (juce::Colour (pluginCore::palette::hairline));
    g.fillRect (getLocalBounds().removeFromRight (1));
}

void SideBarComponent::resized()
{
    const auto layout = SideBarLayout::forSize (getWidth(), getHeight());
    settingsButton.setBounds (layout.settings);
    freezeControl->setBounds (layout.freeze);
    exportButton.setBounds (layout.exportPicture);
    aboutButton.setBounds (layout.about);
    updateSettingsIndent();
}

} // namespace mk::orlo
