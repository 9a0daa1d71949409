// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColourComboBoxControl.h"

#include "ColourMapMenuItem.h"
#include "plugin_core/attachments/UndoFlush.h"

namespace mk::orlo
{

int stepAround (int position, int distance, int count) noexcept
{
    return count > 0 ? juce::negativeAwareModulo (position + distance, count) : -1;
}

ColourComboBoxControl::ColourComboBoxControl (juce::AudioProcessorValueTreeState& state, const juce::String& id)
    : paramID (id)
{
    addAndMakeVisible (comboBox);

    for (int i = 0; i < ColourMapPreviewComponent::getNumMaps(); ++i)
        comboBox.getRootMenu()->addCustomItem (
            i + 1, std::make_unique<ColourMapMenuItem> (i, *this), nullptr, ColourMapPreviewComponent::getMapName (i));

    auto* parameter = state.getParameter (paramID);

    if (parameter == nullptr)
        return;

    comboBox.setTitle (juce::translate (parameter->getName (128)));
    const auto afterGesture = [this, &state]
    {
        pluginCore::flushIntoTransaction (state);
        rememberChoice();
    };

    // The parameter has reserved values without a map: they are shown as the first map.
    attachment =
        std::make_unique<pluginCore::ComboBoxAttachment> (*parameter,
                                                          comboBox,
                                                          state.undoManager,
                                                          afterGesture,
                                                          pluginCore::ComboBoxAttachment::ValuesBeyond::showFirstEntry);
}

ColourComboBoxControl::~ColourComboBoxControl() { comboBox.hidePopup(); }

void ColourComboBoxControl::Box::showPopup()
{
    juce::ComboBox::showPopup();
    keyScroller.followOpenMenu();
}

void ColourComboBoxControl::rememberChoice()
{
    globalSettings.getSettings().setProperty (pluginCore::SettingsIds::preferedMap, comboBox.getSelectedId(), nullptr);
}

void ColourComboBoxControl::showPopup()
{
    if (comboBox.isEnabled() && ! comboBox.isPopupActive())
        comboBox.showPopup();
}

void ColourComboBoxControl::step (int distance)
{
    const auto position = stepAround (comboBox.getSelectedItemIndex(), distance, comboBox.getNumItems());
    comboBox.setSelectedId (comboBox.getItemId (position), juce::sendNotificationAsync);
}

} // namespace mk::orlo
