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

/** The base class of every product's editor, without the content: the shared look and feel, the size limits,
    the resizer in the corner, the tracking of the window's display, the notice of a new version.
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

    /** The edge length of the corner resizer in logical pixels. */
    [[nodiscard]] virtual int getCornerSize() const;

    //==============================================================================
    void windowMoved (PluginMoveDetector&) override;
    void applicationActiveChanged (PluginMoveDetector&, bool wentInactive) override;
    void retinaStateChanged (PluginMoveDetector&, bool) override {}

    /** The parameter index of the control that the component is or is part of; -1 if there is none. */
    [[nodiscard]] int getControlParameterIndex (juce::Component& component) override;

    void mouseDown (const juce::MouseEvent&) override {}
    void broughtToFront() override;

    /** While the notice is open, Tab moves the keyboard focus into it. */
    bool keyPressed (const juce::KeyPress& key) override;

    //==============================================================================
    void open (int width, int height) override;

    /** Fits the window to its display, repositions the corner resizer, and stores the size. Called at every
        resize. */
    void updateSizeConstraints();

    void startUpdateCheck() override;

    /** Fetches the change log of a newer version if a notice is due. */
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

    /** The displays that the window may be on: the system's, unless a test overrides this. */
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
    std::unique_ptr<WindowPoller::Client> pollerClient; // drives the detector
    juce::ComponentBoundsConstrainer constrainer;

    /** Only compared, never dereferenced: the list of displays may have changed since. */
    const juce::Displays::Display* currentDisplay = nullptr;

    bool sizeRestored = false;

    const UpdateEnvironment updateEnvironment;
    UpdateChangeLogComponent updateChangeLogComponent;
    std::unique_ptr<UpdateChecker> updateChecker;

    /** Read from the settings when the editor is constructed. */
    const UpdateSchedule updateSchedule;

    bool updateNoticeOpen = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginEditor)
};

} // namespace mk::pluginCore
