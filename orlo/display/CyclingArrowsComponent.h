// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/FilledPathButton.h"

#include <functional>

namespace mk::orlo
{

/** Two arrows that step through the list of colour maps. [message thread] */
class CyclingArrowsComponent : public juce::Component
{
public:
    CyclingArrowsComponent();

    std::function<void()> onPrevious, onNext;

    [[nodiscard]] juce::Button& getPreviousButton() noexcept { return previousButton; }
    [[nodiscard]] juce::Button& getNextButton() noexcept { return nextButton; }

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    pluginCore::FilledPathButton previousButton, nextButton;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CyclingArrowsComponent)
};

} // namespace mk::orlo
