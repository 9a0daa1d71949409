// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "KeyboardKeys.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::orlo
{

class PixelGrid;

/** A vertical piano keyboard beside the picture, each key as high as its semitone is on the scale. Opaque,
    so that it is not repainted while only the picture changes. [message thread] */
class KeyboardScaleComponent : public juce::Component, private FrequencyScale::Listener, private juce::AsyncUpdater
{
public:
    static constexpr int noNote = -1;

    /** The scale must outlive the component. */
    explicit KeyboardScaleComponent (FrequencyScale& scale);
    ~KeyboardScaleComponent() override;

    /** Gets the key under the mouse as it moves over the keyboard. */
    std::function<void (const KeyboardKey&)> onKeyHovered;

    /** Changes how notes are named, and where they lie; by default A is at 440 Hz, and octaves are those of the host. */
    void setTuning (const notes::Tuning& newTuning);

    /** Highlights the key of a MIDI note, if it is shown; noNote highlights none. */
    void setHighlightedNote (int note);
    [[nodiscard]] int getHighlightedNote() const noexcept { return highlightedNote; }

    /** The keys that are shown, ascending. */
    [[nodiscard]] const std::vector<KeyboardKey>& getKeys() const noexcept { return keys; }

    [[nodiscard]] const juce::Font& getFont() const noexcept { return font; }

    void paint (juce::Graphics&) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;
    void parentHierarchyChanged() override;
    void mouseMove (const juce::MouseEvent&) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void frequencyScaleChanged (FrequencyScale&) override;
    void handleAsyncUpdate() override;
    void updateFont();
    void rebuild();
    void repaintKey (int note);
    void paintKeys (juce::Graphics&, const PixelGrid&, bool black) const;
    void paintLabels (juce::Graphics&) const;

    FrequencyScale& scale;
    std::vector<KeyboardKey> keys;
    notes::Tuning tuning { notes::getOctaveOfMiddleC() };
    int highlightedNote = noNote;
    juce::Font font;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (KeyboardScaleComponent)
};

} // namespace mk::orlo
