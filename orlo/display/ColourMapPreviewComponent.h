// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::orlo
{

/** A bar with the colours of a map, level 0 at the left end and 1 at the right, with or without the map's
    name beside it. If onClick is set, it is a button for screen readers. [message thread] */
class ColourMapPreviewComponent : public juce::Component, public juce::SettableTooltipClient
{
public:
    /** An index without a map counts as that of the first map. */
    ColourMapPreviewComponent (int mapIndex, bool showName);

    /** Called at a click of the left button without ctrl. */
    std::function<void()> onClick;

    /** Shows another map. */
    void setMapIndex (int newIndex);
    [[nodiscard]] int getMapIndex() const noexcept { return mapIndex; }

    /** The number of maps there are. */
    [[nodiscard]] static int getNumMaps() noexcept;

    /** The name of a map. */
    [[nodiscard]] static juce::String getMapName (int index);

    [[nodiscard]] juce::Label& getLabel() noexcept { return label; }
    [[nodiscard]] const juce::FillType& getGradientFill() const noexcept { return gradientFill; }
    [[nodiscard]] juce::Rectangle<float> getGradientArea() const noexcept { return gradientArea; }

    void paint (juce::Graphics& g) override;
    void resized() override;
    void mouseDown (const juce::MouseEvent& event) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void rebuild();
    void placeGradient();

    const bool showName;
    int mapIndex;
    juce::Label label;
    juce::FillType gradientFill;
    juce::Rectangle<float> gradientArea;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ColourMapPreviewComponent)
};

} // namespace mk::orlo
