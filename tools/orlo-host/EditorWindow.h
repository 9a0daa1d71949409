// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <memory>

namespace mk::orlo::host
{

/** A window around the plug-in's editor; when one is resized, the other follows. [message thread] */
class EditorWindow final : public juce::DocumentWindow
{
public:
    /** Opens the window. The plug-in must outlive it. Throws HostError if the plug-in has no editor or there
        is no display. */
    explicit EditorWindow (juce::AudioPluginInstance& plugin);
    ~EditorWindow() override;

    /** Called when the user closes the window. The window itself stays until it is destroyed. */
    std::function<void()> onClose;

    /** Resizes the editor, within the limits that the plug-in sets. Pixels. */
    void setEditorSize (juce::Rectangle<int> size);

    [[nodiscard]] juce::Component& getEditor() const noexcept { return *getContentComponent(); }

private:
    void closeButtonPressed() override;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (EditorWindow)
};

} // namespace mk::orlo::host
