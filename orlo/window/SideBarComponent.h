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

    /** Called with true to open the panel and false to close it. */
    std::function<void (bool)> onSettingsToggled;

    /** Whether the picture is frozen, by the user or because the host has stopped. */
    [[nodiscard]] bool isFrozen() const;

    void paint (juce::Graphics& g) override;
    void resized() override;

    /** The icon shrinks when the panel is open. */
    [[nodiscard]] static int getSettingsIndent (bool isPanelOpen, int buttonHeight) noexcept;

    /** The alpha of the freeze button: dimmed if the picture is frozen only because the host has stopped. */
    [[nodiscard]] static float getFreezeAlpha (bool isAutoPaused, bool isFreezeOn) noexcept;

private:
    using IconButton = pluginCore::ComponentIgnoringRightButton<juce::DrawableButton>;

    void settingsClicked();
    void updateSettingsIndent();
    void poll();

    AudioPluginAudioProcessor& processor;
    const std::atomic<float>& freezeValue; // owned by the parameter state, written by any thread

    IconButton settingsButton, exportButton;
    IconButton* freezeButton = nullptr; // owned by freezeControl
    std::unique_ptr<pluginCore::PluginToggleControl> freezeControl;
    IconButton aboutButton;

    const pluginCore::WindowPoller::Client pollerClient { *this, [this] (bool) { poll(); } };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SideBarComponent)
};

} // namespace mk::orlo
