// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <memory>

namespace mk::orlo::host
{

/** A window around the plug-in's editor. Either follows the other's size. [message thread] */
class EditorWindow final : public juce::DocumentWindow
{
public:
    /** Opens the window. The plug-in must outlive it. Throws HostError if the plug-in has no editor or there
        is no display. */
    explicit EditorWindow (juce::AudioPluginInstance& plugin);
    ~EditorWindow() override;

    /** The user closed the window, which stays until it is destroyed. */
    std::function<void()> onClose;

    /** Sizes the editor, as far as the plug-in agrees. Pixels. */
    void setEditorSize (juce::Rectangle<int> size);

    [[nodiscard]] juce::Component& getEditor() const noexcept { return *getContentComponent(); }

private:
    void closeButtonPressed() override;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (EditorWindow)
};

} // namespace mk::orlo::host
