// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/explore/Explorer.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

namespace mk::orlo
{

/** A label of the bar of levels. */
struct LevelLabel
{
    int decibels;
    float y; /**< Of its mark, in pixels from the top. */
};

/** Labels at round numbers of decibels between two levels, the higher one on top. None if the levels are the same. Any
    thread.
    @param spacing  at least that far apart, in pixels, more than 0 */
[[nodiscard]] std::vector<LevelLabel> placeLevelLabels (float floorDb, float ceilingDb, int height, float spacing);

/** The bar beside an explored picture that says which colours stand for which levels. [message thread] */
class LevelBar final : public juce::Component, private Explorer::Listener
{
public:
    /** The explorer must outlive the component. */
    explicit LevelBar (Explorer& explorer);
    ~LevelBar() override;

    void paint (juce::Graphics&) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void exploringChanged() override { repaint(); }
    void exploredPictureChanged() override { repaint(); }

    Explorer& explorer;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LevelBar)
};

} // namespace mk::orlo
