// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TooltipDisplayComponent.h"

#include "TooltipLine.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/window/ActiveApplication.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{
namespace
{

[[nodiscard]] juce::Colour findLineColour (const juce::Component& line, int id)
{
    return findColourOr (line, id, getFrameworkColours());
}

[[nodiscard]] juce::String findTip (juce::Component* component)
{
    for (; component != nullptr; component = component->getParentComponent())
        if (auto* const client = dynamic_cast<juce::TooltipClient*> (component))
            return client->getTooltip();

    return {};
}

} // namespace

TooltipDisplayComponent::TooltipDisplayComponent()
    : isApplicationActive ([this] { return pluginCore::isApplicationActive (*this); }),
      regularFont (juce::FontOptions {}),
      boldFont (juce::FontOptions {}),
      pollerClient (*this, [this] (bool) { lookUnderMouse(); })
{
    setInterceptsMouseClicks (false, false);
    updateFonts();
    colourChanged();
}

void TooltipDisplayComponent::setDefaultText (const juce::String& newText)
{
    if (std::exchange (defaultText, newText) != newText)
        rebuild();
}

void TooltipDisplayComponent::setHideWhenEmpty (bool shouldHide)
{
    hideWhenEmpty = shouldHide;
    rebuild();
}

//==============================================================================
void TooltipDisplayComponent::lookUnderMouse()
{
    const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
    showTipOf (mouse.isTouch() ? nullptr : mouse.getComponentUnderMouse());
}

bool TooltipDisplayComponent::belongsToOtherWindow (const juce::Component& component) const
{
    const juce::Component* window = findParentComponentOfClass<juce::AudioProcessorEditor>();

    if (window == nullptr)
        window = getTopLevelComponent();

    return &component != window && ! window->isParentOf (&component);
}

void TooltipDisplayComponent::showTipOf (juce::Component* underMouse)
{
    if (underMouse != nullptr && belongsToOtherWindow (*underMouse))
        return;

    auto tip = findTip (underMouse);

    // Most components under the mouse have no tip, so the system is asked only when there is a tip to show.
    if (tip.isNotEmpty() && ! isApplicationActive())
    {
        underMouse = nullptr;
        tip.clear();
    }

    if (underMouse == lastComponent.getComponent() && tip == lastTip)
        return;

    lastComponent = underMouse;
    lastTip = tip;

    if (tip.isEmpty() && tipText.isEmpty())
        return;

    tipText = tip;
    rebuild();
}

//==============================================================================
void TooltipDisplayComponent::updateFonts()
{
    const auto height = getTooltipTextHeight (getHeight());
    regularFont = LookAndFeel::getFontFor (*this, LookAndFeel::Face::semiBold).withHeight (height);
    boldFont = LookAndFeel::getFontFor (*this, LookAndFeel::Face::bold).withHeight (height);
}

void TooltipDisplayComponent::rebuild()
{
    const auto hasTip = tipText.isNotEmpty();
    const auto runs = hasTip ? splitTip (tipText) : std::vector<TipRun> { { defaultText, false } };

    juce::String plainText;

    for (const auto& run : runs)
        plainText += run.text;

    setTitle (plainText);

    if (hideWhenEmpty)
        setVisible (plainText.isNotEmpty());

    const auto area = getTooltipTextArea (getLocalBounds()).toFloat();
    const TipStyle style { regularFont,
                           boldFont,
                           findLineColour (*this, hasTip ? colourId::tooltipText : colourId::tooltipDefaultText),
                           findLineColour (*this, colourId::tooltipBoldText) };

    attributedText = makeTooltipLine (runs, style, area.getWidth());
    layout.createLayout (attributedText, area.getWidth(), area.getHeight());
    repaint();
}

void TooltipDisplayComponent::paint (juce::Graphics& g)
{
    g.fillAll (findLineColour (*this, colourId::tooltipBackground));
    layout.draw (g, getTooltipTextArea (getLocalBounds()).toFloat());
}

//==============================================================================
void TooltipDisplayComponent::resized()
{
    updateFonts();
    rebuild();
}

void TooltipDisplayComponent::lookAndFeelChanged()
{
    updateFonts();
    rebuild();
}

void TooltipDisplayComponent::parentHierarchyChanged()
{
    // The look and feel may be inherited from the new parent.
    lookAndFeelChanged();
    colourChanged();
}

void TooltipDisplayComponent::colourChanged()
{
    setOpaque (findLineColour (*this, colourId::tooltipBackground).isOpaque());
    rebuild();
}

std::unique_ptr<juce::AccessibilityHandler> TooltipDisplayComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::staticText);
}

} // namespace mk::pluginCore
