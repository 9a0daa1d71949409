// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "RulerLabels.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo
{

/** The ruler beside the picture: a strip of frequency labels, each at its position on the scale. Opaque, so
    that it is not repainted while only the picture changes. [message thread] */
class FreqScaleComponent : public juce::Component, private FrequencyScale::Listener, private juce::AsyncUpdater
{
public:
    /** The scale must outlive the component. */
    explicit FreqScaleComponent (FrequencyScale& scale);
    ~FreqScaleComponent() override;

    /** The labels that are painted, ascending. */
    [[nodiscard]] const std::vector<RulerLabel>& getLabels() const noexcept { return labels; }

    [[nodiscard]] const juce::Font& getFont() const noexcept { return font; }

    void paint (juce::Graphics&) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void frequencyScaleChanged (FrequencyScale&) override;
    void handleAsyncUpdate() override;
    void updateFont();
    void rebuild();

    FrequencyScale& scale;
    std::vector<float> ticks; // hertz
    std::vector<RulerLabel> labels;
    juce::Font font;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FreqScaleComponent)
};

} // namespace mk::orlo
