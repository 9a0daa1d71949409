// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AboutComponent.h"
#include "MainLayout.h"
#include "SettingsComponent.h"
#include "SideBarComponent.h"
#include "orlo/display/SpectrogramContainer.h"

#include "plugin_core/attachments/ButtonAttachment.h"
#include "plugin_core/attachments/ParameterAttachment.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/editor/PluginEditor.h"
#include "plugin_core/window/WindowPoller.h"

namespace mk::orlo
{

/** The content of the window. In Standard View it has the side bar at the left, beside it the settings panel if
    it is open, and the spectrogram in the rest; in Full View only the spectrogram with floating buttons on it.
    [message thread] */
class MainComponent final : public juce::Component, private juce::Value::Listener
{
public:
    /** Both must outlive the component. */
    MainComponent (pluginCore::PluginEditor& editor, AudioPluginAudioProcessor& processor);
    ~MainComponent() override;

    [[nodiscard]] SpectrogramContainer& getSpectrogramContainer() noexcept { return spectrogramContainer; }
    [[nodiscard]] juce::Button& getViewButton() noexcept { return viewButton; }
    [[nodiscard]] juce::Button& getFreezeButton() noexcept { return *freezeButton; }
    [[nodiscard]] juce::Button& getExportButton() noexcept { return exportButton; }
    [[nodiscard]] SideBarComponent& getSideBar() noexcept { return sideBar; }
    [[nodiscard]] SettingsComponent& getSettingsPanel() noexcept { return settingsPanel; }
    [[nodiscard]] AboutComponent& getAboutComponent() noexcept { return aboutComponent; }

    /** Opens or closes the settings panel; in Full View the change is applied on the return to Standard View. */
    void setSettingsWanted (bool areWanted);

    //==============================================================================
    void paint (juce::Graphics&) override;
    void paintOverChildren (juce::Graphics&) override;
    void resized() override;
    void mouseEnter (const juce::MouseEvent&) override;
    void mouseExit (const juce::MouseEvent&) override;
    void focusOfChildComponentChanged (FocusChangeType cause) override;
    bool keyPressed (const juce::KeyPress&) override;
    bool keyStateChanged (bool isKeyDown) override;

private:
    using IconButton = pluginCore::ComponentIgnoringRightButton<juce::DrawableButton>;

    void connectPanels();
    void setUpButtons();
    void valueChanged (juce::Value&) override;
    void updateView();
    void viewButtonChanged();
    void updateViewButtonVisibility();
    void updateExportButton();
    void updateFreezeButton (float freezeValue);
    [[nodiscard]] bool isFullView() const;
    [[nodiscard]] bool isFrozen() const;
    [[nodiscard]] juce::Rectangle<int> getPictureArea();

    AudioPluginAudioProcessor& processor;
    std::unique_ptr<IconButton> freezeButton;
    IconButton exportButton { {}, juce::DrawableButton::ImageFitted };
    juce::Value cleanViewMode;
    IconButton viewButton { {}, juce::DrawableButton::ImageFitted };
    juce::RangedAudioParameter &rulerParameter, &keyboardParameter, &freezeParameter;
    pluginCore::ParameterAttachment rulerAttachment, keyboardAttachment, freezeAttachment;
    pluginCore::ButtonAttachment freezeButtonAttachment;
    SideBarComponent sideBar;
    SettingsComponent settingsPanel;
    bool settingsWanted = false;
    bool focusCameByKey = false;
    SpectrogramContainer spectrogramContainer;
    AboutComponent aboutComponent;

    // Polled, since there is no notification that the host has stopped or that the mouse has moved onto a dialog.
    const pluginCore::WindowPoller::Client pollerClient { *this,
                                                          [this] (bool windowMayHaveChanged)
                                                          {
                                                              updateExportButton();

                                                              // It asks the window system where the mouse is.
                                                              if (windowMayHaveChanged)
                                                                  updateViewButtonVisibility();
                                                          } };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MainComponent)
};

} // namespace mk::orlo
