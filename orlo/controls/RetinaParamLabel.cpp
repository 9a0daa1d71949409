// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RetinaParamLabel.h"

#include "plugin_core/attachments/UndoFlush.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

#include <utility>

namespace mk::orlo
{
namespace
{
namespace scaleRule = pluginCore::scaleRule;

constexpr double textScale = 0.5;
constexpr int textMarginsPerWidth = 24;
constexpr float leastTextWidth = 0.92f;
constexpr float outlineWidth = 1.5f;
constexpr float overContrast = 0.05f;
constexpr float downContrast = 0.2f;
} // namespace

RetinaParamLabel::RetinaParamLabel (juce::AudioProcessorValueTreeState& stateToUse, const juce::String& parameterId)
    : juce::Label (parameterId, "2x"),
      state (stateToUse),
      parameter (*state.getParameter (parameterId)),
      attachment (
          parameter,
          [this] (float value) { showValue (value); },
          state.undoManager)
{
    getProperties().set (pluginCore::styleProperty::fontScale, textScale);
    setJustificationType (juce::Justification::centred);
    setBorderSize (juce::BorderSize<int> (0));
    setWantsKeyboardFocus (true);
    setMouseClickGrabsKeyboardFocus (false);
    setRepaintsOnMouseActivity (true);
    attachment.sendInitialUpdate();
}

void RetinaParamLabel::showValue (float value)
{
    setText (juce::translate (parameter.getText (parameter.convertTo0to1 (value), 0)), juce::dontSendNotification);
    repaint();
}

bool RetinaParamLabel::isOn() const { return juce::roundToInt (parameter.convertFrom0to1 (parameter.getValue())) >= 1; }

void RetinaParamLabel::flip()
{
    attachment.setValueAsCompleteGesture (isOn() ? 0.0f : 1.0f);
    pluginCore::flushIntoTransaction (state);
}

void RetinaParamLabel::paint (juce::Graphics& g)
{
    const auto area = getLocalBounds().toFloat().reduced (outlineWidth * 0.5f);
    const auto radius = scaleRule::cornerRadius (*this) * 0.5f;
    const auto on = isOn();
    const auto contrast = isPressed ? downContrast : (isMouseOver() ? overContrast : 0.0f);

    g.setColour (
        findColour (on ? juce::TextButton::buttonOnColourId : juce::TextButton::buttonColourId).contrasting (contrast));
    g.fillRoundedRectangle (area, radius);
    g.setColour (findColour (hasKeyboardFocus (true) ? juce::ComboBox::focusedOutlineColourId
                                                     : juce::ComboBox::outlineColourId));
    g.drawRoundedRectangle (area, radius, outlineWidth);

    g.setColour (findColour (on ? juce::TextButton::textColourOnId : juce::TextButton::textColourOffId));
    g.setFont (getTextFont());
    g.drawFittedText (getText(), getTextArea(), getJustificationType(), 1, leastTextWidth);
}

juce::Rectangle<int> RetinaParamLabel::getTextArea() const
{
    return getLocalBounds().reduced (getWidth() / textMarginsPerWidth, 0);
}

juce::Font RetinaParamLabel::getTextFont()
{
    const auto type = getLookAndFeel().getLabelFont (*this);
    const auto width = juce::GlyphArrangement::getStringWidth (type, getText()) * leastTextWidth;
    const auto room = float (getTextArea().getWidth());

    // The tag is about as wide as it is high, too narrow for most words: the type is reduced just enough to fit.
    return width > room ? type.withHeight (type.getHeight() * room / width) : type;
}

void RetinaParamLabel::mouseDown (const juce::MouseEvent& event)
{
    isPressed = pluginCore::isEditingClick (event.mods);
    repaint();
}

void RetinaParamLabel::mouseUp (const juce::MouseEvent& event)
{
    if (std::exchange (isPressed, false) && getLocalBounds().contains (event.getPosition()))
        flip();

    repaint();
}

// The second press of a double click counts as a click of its own, so nothing is left to do here.
void RetinaParamLabel::mouseDoubleClick (const juce::MouseEvent&) {}

bool RetinaParamLabel::keyPressed (const juce::KeyPress& key)
{
    if (key != juce::KeyPress::spaceKey && key != juce::KeyPress::returnKey)
        return false;

    flip();
    return true;
}

std::unique_ptr<juce::AccessibilityHandler> RetinaParamLabel::createAccessibilityHandler()
{
    struct Handler final : juce::AccessibilityHandler
    {
        Handler (RetinaParamLabel& label, juce::AccessibilityActions handlerActions)
            : juce::AccessibilityHandler (label, juce::AccessibilityRole::toggleButton, std::move (handlerActions)),
              owner (label)
        {
        }

        [[nodiscard]] juce::AccessibleState getCurrentState() const override
        {
            const auto current = juce::AccessibilityHandler::getCurrentState().withCheckable();
            return owner.isOn() ? current.withChecked() : current;
        }

        [[nodiscard]] juce::String getHelp() const override { return owner.getTooltip(); }

        RetinaParamLabel& owner;
    };

    return std::make_unique<Handler> (*this,
                                      juce::AccessibilityActions()
                                          .addAction (juce::AccessibilityActionType::press, [this] { flip(); })
                                          .addAction (juce::AccessibilityActionType::toggle, [this] { flip(); }));
}

} // namespace mk::orlo
