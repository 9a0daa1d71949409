// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SliderLabelComp.h"

#include "SliderProperties.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace scaleRule = pluginCore::scaleRule;
namespace styleProperty = pluginCore::styleProperty;

namespace
{
[[nodiscard]] juce::Justification justificationFor (const juce::String& name)
{
    if (name == "left")
        return juce::Justification::centredLeft;

    return name == "right" ? juce::Justification::centredRight : juce::Justification::centred;
}
} // namespace

PluginLookAndFeel::SliderLabelComp::SliderLabelComp (const juce::Slider& slider)
{
    setKeyboardType (juce::TextInputTarget::decimalKeyboard);
    updateJustification (slider);

    const auto copy = [this, &slider] (int from, std::initializer_list<int> destinations)
    {
        for (const auto to : destinations)
            setColour (to, slider.findColour (from));
    };

    copy (juce::Slider::textBoxTextColourId,
          { textColourId,
            textWhenEditingColourId,
            juce::TextEditor::textColourId,
            juce::TextEditor::highlightedTextColourId });
    copy (juce::Slider::textBoxBackgroundColourId, { backgroundColourId, juce::TextEditor::backgroundColourId });
    copy (juce::Slider::textBoxHighlightColourId, { juce::TextEditor::highlightColourId });
    copy (juce::Slider::textBoxOutlineColourId, { outlineColourId, juce::TextEditor::outlineColourId });
}

juce::Font PluginLookAndFeel::SliderLabelComp::getTextFont (const PluginLookAndFeel& style) const
{
    const auto find = [this, slider = findSlider()] (const juce::Identifier& name, const juce::var& fallback)
    {
        if (getProperties().contains (name))
            return getProperties()[name];

        const auto value = slider != nullptr ? findSliderProperty (*slider, name) : juce::var();
        return value.isVoid() ? fallback : value;
    };

    const auto height = scaleRule::textHeight (find (styleProperty::cat, scaleRule::defaultCategory),
                                               find (styleProperty::fontScale, 1.0),
                                               scaleRule::editorWidthAbove (*this));
    return style.getFont (Face::semiBold)
        .withHeight (juce::jlimit (1.0f, std::max (1.0f, float (getHeight())), height));
}

juce::Slider* PluginLookAndFeel::SliderLabelComp::findSlider() const
{
    return findParentComponentOfClass<juce::Slider>();
}

void PluginLookAndFeel::SliderLabelComp::updateJustification (const juce::Slider& slider)
{
    setJustificationType (justificationFor (findSliderProperty (slider, styleProperty::justification).toString()));
}

void PluginLookAndFeel::SliderLabelComp::parentHierarchyChanged()
{
    juce::Label::parentHierarchyChanged();

    if (const auto* slider = findSlider())
        updateJustification (*slider);
}

void PluginLookAndFeel::SliderLabelComp::handOn (void (juce::Component::*callback) (const juce::MouseEvent&),
                                                 const juce::MouseEvent& event)
{
    auto* slider = findSlider();

    // A slider of a bar style listens to its text box by itself.
    if (slider != nullptr && ! slider->isBar() && ! isBeingEdited())
        (slider->*callback) (event.getEventRelativeTo (slider));
}

void PluginLookAndFeel::SliderLabelComp::mouseEnter (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseEnter, event);
}

void PluginLookAndFeel::SliderLabelComp::mouseExit (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseExit, event);
}

void PluginLookAndFeel::SliderLabelComp::mouseMove (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseMove, event);
}

void PluginLookAndFeel::SliderLabelComp::mouseDown (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseDown, event);
}

void PluginLookAndFeel::SliderLabelComp::mouseDrag (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseDrag, event);
}

void PluginLookAndFeel::SliderLabelComp::mouseUp (const juce::MouseEvent& event)
{
    handOn (&juce::Component::mouseUp, event);

    if (isBeingEdited() || ! pluginCore::isEditingClick (event.mods))
        return;

    juce::Label::mouseUp (event);

    if (isBeingEdited())
        editorOpened = event.eventTime;
}

void PluginLookAndFeel::SliderLabelComp::mouseDoubleClick (const juce::MouseEvent& event)
{
    if (! pluginCore::isEditingClick (event.mods))
        return;

    // Closing the editor deletes the component that the event refers to, so the event is converted first.
    const auto ownEvent = event.getEventRelativeTo (this);

    if (isBeingEdited())
    {
        // If the first of the two clicks has opened the editor, the double click is for the slider. In an editor
        // that was open before, it selects a word.
        const auto timeout = juce::RelativeTime::milliseconds (juce::MouseEvent::getDoubleClickTimeout());

        if (event.mouseDownTime - editorOpened > timeout)
            return;

        hideEditor (true);
    }

    handOn (&juce::Component::mouseDoubleClick, ownEvent);
}

void PluginLookAndFeel::SliderLabelComp::mouseWheelMove (const juce::MouseEvent& event,
                                                         const juce::MouseWheelDetails& wheel)
{
    auto* slider = findSlider();

    if (slider != nullptr && ! slider->isBar() && ! isBeingEdited())
        slider->mouseWheelMove (event.getEventRelativeTo (slider), wheel);
}

juce::TextEditor* PluginLookAndFeel::SliderLabelComp::createEditorComponent()
{
    auto* textEditor = juce::Label::createEditorComponent();
    textEditor->setJustification (getJustificationType());
    textEditor->setBorder (getBorderSize());
    textEditor->setIndents (0, 0);
    textEditor->addMouseListener (this, false);
    repaint();
    return textEditor;
}

void PluginLookAndFeel::SliderLabelComp::textEditorReturnKeyPressed (juce::TextEditor& textEditor)
{
    const SafePointer<SliderLabelComp> self (this);
    juce::Label::textEditorReturnKeyPressed (textEditor);

    if (self != nullptr)
        giveKeyboardToSlider();
}

void PluginLookAndFeel::SliderLabelComp::textEditorEscapeKeyPressed (juce::TextEditor& textEditor)
{
    const SafePointer<SliderLabelComp> self (this);
    juce::Label::textEditorEscapeKeyPressed (textEditor);

    if (self != nullptr)
        giveKeyboardToSlider();
}

void PluginLookAndFeel::SliderLabelComp::giveKeyboardToSlider()
{
    if (auto* slider = findSlider(); slider != nullptr && slider->getWantsKeyboardFocus() && slider->isShowing())
        slider->grabKeyboardFocus();
}

std::unique_ptr<juce::AccessibilityHandler> PluginLookAndFeel::SliderLabelComp::createAccessibilityHandler()
{
    // The slider, which has the same text, is the one that screen readers see.
    return createIgnoredAccessibilityHandler (*this);
}

} // namespace mk::orlo
