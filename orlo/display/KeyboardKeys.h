// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "NoteNames.h"
#include "orlo/analysis/FrequencyScale.h"

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace mk::orlo
{

/** One key of the keyboard beside the picture. */
struct KeyboardKey
{
    int noteNumber;                    /**< MIDI numbering, 69 is A at the concert pitch. */
    float lowFrequency, highFrequency; /**< Hertz: a semitone, cut to the range of the scale. */
    bool isBlack, hasLabel;

    juce::Rectangle<int> body;      /**< The rows of the semitone, at the width of the key. */
    juce::RectangleList<int> shape; /**< The body and, for a white key, what lies under its black neighbours. */

    juce::String label; /**< The name of the note, on every C. */

    /** The rows of the semitone, rounded outwards to whole pixels, at the width of the strip. */
    juce::Rectangle<int> labelArea;
};

/** The width of a black key. The rest of the strip, at the right, belongs to the white keys. */
[[nodiscard]] int getBlackKeyWidth (int stripWidth) noexcept;

/** The keys that a strip of the given size shows, ascending: from the C two octaves below middle C to the C five
    octaves above it, as far as they lie in the range. [owner thread of the scale] */
[[nodiscard]] std::vector<KeyboardKey>
    buildKeyboardKeys (const FrequencyScale& scale, int width, int height, const notes::Tuning& tuning);

/** The line, a pixel high, that separates two white keys: at the lower edge of C and F, and behind a black
    key. Empty if the key has none or is too thin for it. */
[[nodiscard]] juce::Rectangle<int> getKeySeparator (const KeyboardKey& key, int stripWidth) noexcept;

/** The part of a black key that is highlighted; its edge stays dark. */
[[nodiscard]] juce::Rectangle<int> getBlackKeyHighlight (const KeyboardKey& key, int stripWidth) noexcept;

/** True if the key has a label and is high enough for it. */
[[nodiscard]] bool isLabelShown (const KeyboardKey& key, float fontHeight) noexcept;

/** The key that contains a frequency, the lower one on a boundary; null if there is none. */
[[nodiscard]] const KeyboardKey* findKeyForFrequency (const std::vector<KeyboardKey>& keys, float hz) noexcept;

} // namespace mk::orlo
