// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ComponentIgnoringRightButton.h"

namespace mk::pluginCore
{

/** A button that shows one filled path, drawn by the look and feel. It reacts only to the left mouse button.
    [message thread] */
class FilledPathButton : public ComponentIgnoringRightButton<juce::Button>
{
public:
    /** Implemented by a look and feel that draws these buttons. */
    struct LookAndFeelMethods
    {
        virtual ~LookAndFeelMethods() = default;

        /** Draws the whole button. */
        virtual void drawFilledPathButton (juce::Graphics& g,
                                           FilledPathButton& button,
                                           const juce::Path& path,
                                           bool isOver,
                                           bool isDown) = 0;
    };

    /** The name is also what screen readers say. The path may have any size: it is fitted to the button,
        with its proportions kept. */
    FilledPathButton (const juce::String& name, juce::Path path);

    void setPath (juce::Path newPath);
    [[nodiscard]] const juce::Path& getPath() const noexcept { return path; }

    void paintButton (juce::Graphics& g, bool isOver, bool isDown) override;

private:
    juce::Path path;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FilledPathButton)
};

} // namespace mk::pluginCore
