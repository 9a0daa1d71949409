// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/settings/PluginGlobalSettings.h"
#include "plugin_core/window/PluginMoveDetector.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::pluginCore
{

class PluginProcessor;

/** The window of every product of the family, without its content: the shared look and feel, the rules of
    its size, the grip in its corner, the watch on its display. [message thread] */
class PluginEditor : public juce::AudioProcessorEditor, public PluginMoveDetector::Listener
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

    explicit PluginEditor (PluginProcessor& processor);
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

    //==============================================================================
    /** Gives the complete window its first size, within its limits. Until then no size is remembered as the
        user's. Called once, by PluginProcessor::createEditor(). */
    void open (int width, int height);

    /** Fits the window to its display, the grip to the window, and remembers the size. Called at every
        resize. */
    void updateSizeConstraints();

    [[nodiscard]] PluginProcessor& getPluginProcessor() const noexcept { return pluginProcessor; }
    [[nodiscard]] PluginMoveDetector& getMoveDetector() noexcept { return *moveDetector; }

protected:
    [[nodiscard]] juce::Component& getCornerResizer() noexcept { return *cornerResizer; }

private:
    class PluginEditorListener;

    [[nodiscard]] const juce::Displays::Display* findDisplay() const;
    void rememberSize();

    const std::shared_ptr<DefaultPluginLookAndFeel> sharedLookAndFeel;
    std::unique_ptr<juce::ResizableCornerComponent> cornerResizer;
    std::unique_ptr<PluginEditorListener> editorListener;
    const PluginGlobalSettings globalSettings;
    PluginProcessor& pluginProcessor;
    std::unique_ptr<PluginMoveDetector> moveDetector;
    juce::ComponentBoundsConstrainer constrainer;

    /** Only compared, never followed: the list of displays may have changed since. */
    const juce::Displays::Display* currentDisplay = nullptr;

    bool sizeRestored = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginEditor)
};

} // namespace mk::pluginCore
