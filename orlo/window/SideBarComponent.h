// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/controls/PluginToggleControl.h"
#include "plugin_core/window/WindowPoller.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::orlo
{

class AudioPluginAudioProcessor;

/** The narrow column at the left of the Standard View: opens the settings panel, freezes the picture, exports
    it and opens the About page. [message thread] */
class SideBarComponent : public juce::Component
{
public:
    explicit SideBarComponent (AudioPluginAudioProcessor& processor);

    std::function<void()> onAboutClicked, onExportClicked;

    /** Called with whether the panel should be open. */
    std::function<void (bool)> onSettingsToggled;

    /** Whether the picture stands still, by the user's wish or since the host has stopped. */
    [[nodiscard]] bool isFrozen() const;

    void paint (juce::Graphics& g) override;
    void resized() override;

    /** The icon shrinks when the panel is open. */
    [[nodiscard]] static int getSettingsIndent (bool isPanelOpen, int buttonHeight) noexcept;

    /** A freeze that only the host's stop has brought is shown dimmed. */
    [[nodiscard]] static float getFreezeAlpha (bool isAutoPaused, bool isFreezeOn) noexcept;

private:
    using IconButton = pluginCore::ComponentIgnoringRightButton<juce::DrawableButton>;

    void settingsClicked();
    void updateSettingsIndent();
    void poll();

    AudioPluginAudioProcessor& processor;
    const std::atomic<float>& freezeValue; // the store's own, written by any thread

    IconButton settingsButton, exportButton;
    IconButton* freezeButton = nullptr; // the control's
    std::unique_ptr<pluginCore::PluginToggleControl> freezeControl;
    IconButton aboutButton;

    const pluginCore::WindowPoller::Client pollerClient { *this, [this] (bool) { poll(); } };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SideBarComponent)
};

} // namespace mk::orlo
