// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AboutComponent.h"

#include "Credits.h"
#include "orlo/processor/Product.h"

#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
namespace colourId = pluginCore::colourId;
namespace styleProperty = pluginCore::styleProperty;

constexpr float padPerHeight = 0.03f;
constexpr float lineShare = 0.1f;
constexpr float smallShare = 0.08f;
constexpr float footerShare = 0.05f;

constexpr float quietAlpha = 0.65f;

[[nodiscard]] juce::Colour findFrameworkColour (const juce::Component& component, int id)
{
    return pluginCore::findColourOr (component, id, pluginCore::getFrameworkColours());
}

[[nodiscard]] juce::String makeFooter (const pluginCore::PluginProcessor& processor)
{
    const auto copyright = juce::String::charToString (0xa9);
    const auto dot = "  " + juce::String::charToString (0xb7) + "  ";
    return copyright + " " + juce::String (processor.getReleaseYear()) + " " + processor.getProductInfo().company + dot
           + juce::translate ("Free software under the GNU Affero General Public License, version 3 or later");
}
} // namespace

AboutComponent::AboutComponent (const pluginCore::PluginProcessor& processor)
    : openInBrowser ([] (const juce::URL& page) { static_cast<void> (page.launchInDefaultBrowser()); })
{
    const auto wrapper = juce::AudioProcessor::getWrapperTypeDescription (processor.wrapperType);

    setUp (titleLabel, processor.getName(), 0, 2.6);
    setUp (subtitleLabel, juce::translate ("Spectrogram analyser") + " (" + wrapper + ")", 2, 1.1);
    setUp (versionLabel, processor.getVersionText(), 2, 1.0);
    setUp (creditsLabel, makeCredits(), 2, 0.72);
    setUp (websiteLabel, juce::URL (getVendorSite()).getDomain(), 2, 1.0);
    setUp (footerLabel, makeFooter (processor), 2, 0.72);

    // Clicks on the rest of the page close it.
    websiteLabel.setInterceptsMouseClicks (true, false);
    websiteLabel.setMouseCursor (juce::MouseCursor::PointingHandCursor);
    websiteLabel.addMouseListener (this, false);
    websiteLabel.onPress = [this] { openHomePage(); };

    setTitle (juce::translate ("About %s").replace ("%s", processor.getName()));
    setWantsKeyboardFocus (true);
    setOpaque (true);
    applyColours();
}

void AboutComponent::setUp (juce::Label& label, const juce::String& text, int category, double fontScale)
{
    label.setText (text, juce::dontSendNotification);
    label.setJustificationType (juce::Justification::centred);
    label.setBorderSize ({});
    label.setInterceptsMouseClicks (false, false);
    label.setMinimumHorizontalScale (1.0f);
    label.getProperties().set (styleProperty::cat, category);
    label.getProperties().set (styleProperty::fontScale, fontScale);
    addAndMakeVisible (label);
}

//==============================================================================
AboutComponent::Layout AboutComponent::makeLayout (juce::Rectangle<int> bounds, int websiteWidth)
{
    const auto pad = int (float (bounds.getHeight()) * padPerHeight);
    auto area =
        bounds.withSize (juce::jmax (0, bounds.getWidth() - 2 * pad), juce::jmax (0, bounds.getHeight() - 2 * pad))
            .translated (pad, pad);
    const auto height = float (area.getHeight());
    const auto line = int (height * lineShare);
    const auto small = int (height * smallShare);
    const auto gap = line / 3;

    Layout layout;
    layout.footer = area.removeFromBottom (juce::jmin (area.getHeight(), int (height * footerShare)));
    area.removeFromTop (line);
    layout.title = area.removeFromTop (3 * line);
    layout.subtitle = layout.title.withTop (layout.title.getBottom() - small);
    area.removeFromTop (gap);
    layout.version = area.removeFromTop (small);
    area.removeFromTop (gap);
    layout.credits = area.removeFromTop (2 * small);

    const auto websiteRow = area.removeFromTop (small);
    layout.website = websiteRow.withSizeKeepingCentre (juce::jmin (websiteWidth, websiteRow.getWidth()), small);
    return layout;
}

void AboutComponent::resized()
{
    // The height of the font depends on that of the label.
    websiteLabel.setBounds (makeLayout (getLocalBounds(), getWidth()).website);
    const auto font = getLookAndFeel().getLabelFont (websiteLabel);
    const auto width = std::ceil (juce::GlyphArrangement::getStringWidth (font, websiteLabel.getText()));

    const auto layout = makeLayout (getLocalBounds(), int (width));
    titleLabel.setBounds (layout.title);
    subtitleLabel.setBounds (layout.subtitle);
    versionLabel.setBounds (layout.version);
    creditsLabel.setBounds (layout.credits);
    websiteLabel.setBounds (layout.website);
    footerLabel.setBounds (layout.footer);
}

void AboutComponent::paint (juce::Graphics& g) { g.fillAll (findFrameworkColour (*this, colourId::overlayBackground)); }

// The look and feel is inherited from the parent.
void AboutComponent::parentHierarchyChanged() { lookAndFeelChanged(); }

void AboutComponent::lookAndFeelChanged()
{
    applyColours();
    resized();
}

void AboutComponent::applyColours()
{
    const auto text = findFrameworkColour (*this, colourId::overlayText);

    for (auto* const label : { &titleLabel, &versionLabel })
        label->setColour (juce::Label::textColourId, text);

    for (auto* const label : { &subtitleLabel, &creditsLabel, &footerLabel })
        label->setColour (juce::Label::textColourId, text.withMultipliedAlpha (quietAlpha));

    websiteLabel.setColour (juce::Label::textColourId, findFrameworkColour (*this, colourId::linkText));
}

//==============================================================================
void AboutComponent::openHomePage()
{
    juce::NullCheckedInvocation::invoke (openInBrowser, juce::URL (getVendorSite()));
    setVisible (false);
}

void AboutComponent::mouseDown (const juce::MouseEvent& event)
{
    if (event.originalComponent == &websiteLabel)
        openHomePage();
    else
        setVisible (false);
}

bool AboutComponent::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::returnKey)
        openHomePage();
    else if (key == juce::KeyPress::escapeKey)
        setVisible (false);
    else
        return false;

    return true;
}

void AboutComponent::visibilityChanged()
{
    if (! isShowing())
        return;

    grabKeyboardFocus();
    juce::AccessibilityHandler::postAnnouncement (getTitle() + ", " + versionLabel.getText(),
                                                  juce::AccessibilityHandler::AnnouncementPriority::medium);
}

std::unique_ptr<juce::AccessibilityHandler> AboutComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::dialogWindow);
}

std::unique_ptr<juce::AccessibilityHandler> AboutComponent::WebsiteLabel::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (
        *this,
        juce::AccessibilityRole::hyperlink,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press,
                                                [this] { juce::NullCheckedInvocation::invoke (onPress); }));
}

} // namespace mk::orlo
