// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SoundOverview.h"
#include "StripWindow.h"
#include "TimeTicks.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo
{

/** The strip below an explored picture: a ruler of its time, and a small picture of all the sound in which the range on
    view is a window that can be dragged, and pulled at its edges. [message thread] */
class TimeStrip final : public juce::Component, private Explorer::Listener
{
public:
    /** The explorer must outlive the component. */
    explicit TimeStrip (Explorer& explorer);
    ~TimeStrip() override;

    /** What the ruler counts. */
    enum class Unit
    {
        seconds, /**< Before the freeze. */
        bars     /**< The host's bars and beats. */
    };

    void setUnit (Unit newUnit);
    [[nodiscard]] Unit getUnit() const noexcept { return unit; }

    /** Whether the host has told its tempo and position, so that there are bars. */
    [[nodiscard]] bool hasBars() const;

    /** Gets the keys. */
    std::function<bool (const juce::KeyPress&)> onKeyPressed;

    [[nodiscard]] const std::vector<TimeTick>& getTicks() const noexcept { return ticks; }
    [[nodiscard]] const SoundOverview& getOverview() const noexcept { return overview; }

    /** Where all the sound is shown. */
    [[nodiscard]] juce::Rectangle<int> getOverviewArea() const noexcept { return overviewArea; }

    /** The shown range in words, for screen readers. */
    [[nodiscard]] juce::String describeRange() const;

    //==============================================================================
    void paint (juce::Graphics&) override;
    void resized() override;
    void lookAndFeelChanged() override { resized(); }
    void parentHierarchyChanged() override { resized(); }
    void mouseMove (const juce::MouseEvent&) override;
    void mouseDown (const juce::MouseEvent&) override;
    void mouseDrag (const juce::MouseEvent&) override;
    void mouseUp (const juce::MouseEvent&) override;
    bool keyPressed (const juce::KeyPress&) override;
    bool keyStateChanged (bool isKeyDown) override;
    void focusGained (FocusChangeType) override { repaint(); }
    void focusLost (FocusChangeType) override { repaint(); }
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void exploringChanged() override { rangeChanged(); }
    void exploredRangeChanged() override { rangeChanged(); }
    void rangeChanged();
    void rebuildTicks();
    void showMenu (const juce::PopupMenu::Options& options);
    void paintRuler (juce::Graphics& g) const;
    void paintOverview (juce::Graphics& g) const;
    [[nodiscard]] StripWindow getWindow() const noexcept;

    Explorer& explorer;
    SoundOverview overview;
    Unit unit = Unit::seconds;
    juce::Font font { juce::FontOptions {} };
    juce::Rectangle<int> rulerArea, overviewArea;
    std::vector<TimeTick> ticks;

    // While the mouse is down.
    StripWindow::Part dragged = StripWindow::Part::outside;
    TimeView dragStart;
    float dragX = 0.0f;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TimeStrip)
};

} // namespace mk::orlo
