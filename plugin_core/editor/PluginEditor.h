// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/processor/ProcessorEditor.h"
#include "plugin_core/settings/PluginGlobalSettings.h"
#include "plugin_core/updates/UpdateChangeLogComponent.h"
#include "plugin_core/updates/UpdateChecker.h"
#include "plugin_core/updates/UpdateEnvironment.h"
#include "plugin_core/updates/UpdateSchedule.h"
#include "plugin_core/window/PluginMoveDetector.h"
#include "plugin_core/window/WindowPoller.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::pluginCore
{

class PluginProcessor;

/** The window of every product of the family, without its content: the shared look and feel, the rules of
    its size, the grip in its corner, the watch on its display, the notice of a new version.
    [message thread] */
class PluginEditor : public ProcessorEditor, public UpdateChecker::Listener, public PluginMoveDetector::Listener
{
public:
    /** The look and feel that all editors of a process share. */
    class DefaultPluginLookAndFeel : public LookAndFeel
    {
    };

    /** The smallest and the largest size in logical pixels. */
    struct SizeLimits
    {
        int minWidth, minHeight, maxWidth, maxHeight;
    };

    explicit PluginEditor (PluginProcessor& processor, UpdateEnvironment updates = UpdateEnvironment::makeReal());
    ~PluginEditor() override;

    //==============================================================================
    [[nodiscard]] virtual SizeLimits getSizeLimits() const = 0;

    /** Width over height; 0 means free. */
    [[nodiscard]] virtual double getFixedAspectRatio() const = 0;

    /** The length of the grip's edges. */
    [[nodiscard]] virtual int getCornerSize() const;

    //==============================================================================
    void windowMoved (PluginMoveDetector&) override;
    void applicationActiveChanged (PluginMoveDetector&, bool wentInactive) override;
    void retinaStateChanged (PluginMoveDetector&, bool) override {}

    /** The parameter of the control that the component is or lies in; -1 if it has none. */
    [[nodiscard]] int getControlParameterIndex (juce::Component& component) override;

    void mouseDown (const juce::MouseEvent&) override {}
    void broughtToFront() override;

    /** While the notice is open, Tab leads into it. */
    bool keyPressed (const juce::KeyPress& key) override;

    //==============================================================================
    void open (int width, int height) override;

    /** Fits the window to its display, the grip to the window, and remembers the size. Called at every
        resize. */
    void updateSizeConstraints();

    void startUpdateCheck() override;

    /** Fetches what is new in a newer version, if it is time to tell of it. */
    void versionInfoReceived (UpdateChecker&, bool newVersionAvailable, juce::int64 latestReleaseDate) override;

    /** Shows the notice, unless the text is empty. */
    void changeLogReceived (UpdateChecker&, const juce::String& text) override;

    [[nodiscard]] UpdateChecker& getUpdateChecker() noexcept { return *updateChecker; }
    [[nodiscard]] UpdateChangeLogComponent& getUpdateNotice() noexcept { return updateChangeLogComponent; }
    [[nodiscard]] bool isUpdateNoticeOpen() const noexcept { return updateNoticeOpen; }

    [[nodiscard]] PluginProcessor& getPluginProcessor() const noexcept { return pluginProcessor; }
    [[nodiscard]] PluginMoveDetector& getMoveDetector() noexcept { return *moveDetector; }

protected:
    [[nodiscard]] juce::Component& getCornerResizer() noexcept { return *cornerResizer; }

    /** The displays that the window may stand on. The system's, unless a test puts others in their place. */
    [[nodiscard]] virtual const juce::Array<juce::Displays::Display>& getDisplays() const;

private:
    class PluginEditorListener;

    [[nodiscard]] const juce::Displays::Display* findDisplay() const;
    void rememberSize();
    void setUpUpdateNotice();
    void closeUpdateNotice();

    const std::shared_ptr<DefaultPluginLookAndFeel> sharedLookAndFeel;
    std::unique_ptr<juce::ResizableCornerComponent> cornerResizer;
    std::unique_ptr<PluginEditorListener> editorListener;
    const PluginGlobalSettings globalSettings;
    PluginProcessor& pluginProcessor;
    std::unique_ptr<PluginMoveDetector> moveDetector;
    std::unique_ptr<WindowPoller::Client> pollerClient; // steps the detector
    juce::ComponentBoundsConstrainer constrainer;

    /** Only compared, never followed: the list of displays may have changed since. */
    const juce::Displays::Display* currentDisplay = nullptr;

    bool sizeRestored = false;

    const UpdateEnvironment updateEnvironment;
    UpdateChangeLogComponent updateChangeLogComponent;
    std::unique_ptr<UpdateChecker> updateChecker;

    /** As it was when the window was made. */
    const UpdateSchedule updateSchedule;

    bool updateNoticeOpen = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginEditor)
};

} // namespace mk::pluginCore
