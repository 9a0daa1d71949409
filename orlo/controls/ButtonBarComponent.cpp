// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ButtonBarComponent.h"

#include "orlo/style/OrloColours.h"
#include "plugin_core/attachments/UndoFlush.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
constexpr int radioGroup = 1;
constexpr float frameInset = 1.5f;
constexpr float frameThickness = 2.0f;
constexpr float cornerWithoutEditor = 10.0f;
constexpr float cornerPerEditorHeight = 0.00550055f;
} // namespace

ButtonBarComponent::ButtonBarComponent (juce::AudioProcessorValueTreeState& state, const juce::String& id)
    : paramID (id)
{
    auto* parameter = state.getParameter (paramID);

    if (parameter == nullptr)
        return;

    const auto* choice = dynamic_cast<const juce::AudioParameterChoice*> (parameter);
    auto texts = choice != nullptr ? choice->choices : parameter->getAllValueStrings();
    texts.removeEmptyStrings();
    addButtons (texts);
    setTitle (juce::translate (parameter->getName (128)));

    juce::Array<juce::Button*> inOrder;

    for (auto* button : buttons)
        inOrder.add (button);

    attachment = std::make_unique<pluginCore::TabAttachment> (
        *parameter, inOrder, state.undoManager, [&state] { pluginCore::flushIntoTransaction (state); });
}

ButtonBarComponent::~ButtonBarComponent() = default;

void ButtonBarComponent::addButtons (const juce::StringArray& texts)
{
    for (const auto& text : texts)
    {
        auto* button = buttons.add (std::make_unique<pluginCore::AnimatedTextButton> (juce::translate (text)));
        button->setRadioGroupId (radioGroup);
        button->setClickingTogglesState (true);
        button->getProperties().set (pluginCore::styleProperty::cat, 2);

        const auto isFirst = buttons.size() == 1;
        const auto isLast = buttons.size() == texts.size();
        button->setConnectedEdges ((isFirst ? 0 : juce::Button::ConnectedOnLeft)
                                   | (isLast ? 0 : juce::Button::ConnectedOnRight));
        addAndMakeVisible (button);
    }
}

std::unique_ptr<juce::AccessibilityHandler> ButtonBarComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::group);
}

juce::Rectangle<int> ButtonBarComponent::getButtonBounds (int index, int numButtons, int width, int height) noexcept
{
    const auto left = width * index / numButtons;
    const auto right = width * (index + 1) / numButtons;
    const auto overlap = index + 1 < numButtons ? 1 : 0;
    return { left, 0, right - left + overlap, height };
}

void ButtonBarComponent::resized()
{
    for (int i = 0; i < buttons.size(); ++i)
        getButton (i).setBounds (getButtonBounds (i, buttons.size(), getWidth(), getHeight()));
}

void ButtonBarComponent::paint (juce::Graphics& g)
{
    // The look and feel knows only the height of the window that was resized last, which may be another one.
    const auto* const editor = findParentComponentOfClass<juce::AudioProcessorEditor>();
    const auto corner = editor != nullptr ? float (editor->getHeight()) * cornerPerEditorHeight : cornerWithoutEditor;

    g.setColour (findColour (colourId::buttonBarFrame));
    g.drawRoundedRectangle (getLocalBounds().toFloat().reduced (frameInset), corner, frameThickness);
}

} // namespace mk::orlo
