// SPDX-License-Identifier: AGPL-3.0-or-later
#include "KeyboardKeys.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int lowestInnerNote = 37;
constexpr int highestInnerNote = 119;
constexpr float quarterTone = 1.0293022f; // 2 to the power of 1/24
constexpr int thinnestKeyWithSeparator = 4;

/** Turns frequencies into rows of a strip. */
class Rows
{
public:
    Rows (const FrequencyScale& scale, int stripHeight)
        : map (scale.getForwardMap()),
          min (scale.getMinFrequency()),
          max (scale.getMaxFrequency()),
          height (float (stripHeight))
    {
    }

    [[nodiscard]] float clamp (float hz) const noexcept { return juce::jlimit (min, max, hz); }
    [[nodiscard]] float exactRow (float hz) const noexcept { return (1.0f - map (hz)) * height; }
    [[nodiscard]] int row (float hz) const noexcept { return juce::roundToInt (exactRow (hz)); }

private:
    const FrequencyScale::ForwardMap map;
    const float min, max, height;
};

[[nodiscard]] bool hasBlackKeyBelow (int note) noexcept { return notes::isBlackKey (note - 1); }
[[nodiscard]] bool hasBlackKeyAbove (int note) noexcept { return notes::isBlackKey (note + 1); }

[[nodiscard]] juce::RectangleList<int>
    makeShape (const KeyboardKey& key, bool isFirst, bool isLast, const Rows& rows, int width)
{
    juce::RectangleList<int> shape { key.body };

    if (key.isBlack)
        return shape;

    // A white key extends beside a black neighbour to its middle, where the next white key begins.
    const auto tailX = getBlackKeyWidth (width);
    const auto tailWidth = width - tailX;

    if (! isFirst && hasBlackKeyBelow (key.noteNumber))
    {
        const auto foot = rows.row (rows.clamp (key.lowFrequency / quarterTone)) - 1;
        shape.add (tailX, key.body.getY(), tailWidth, foot - key.body.getY());
    }

    if (! isLast && hasBlackKeyAbove (key.noteNumber))
    {
        const auto head = rows.row (rows.clamp (key.highFrequency * quarterTone)) - 1;
        shape.add (tailX, head, tailWidth, rows.row (key.lowFrequency) - head);
    }

    return shape;
}
} // namespace

int getBlackKeyWidth (int stripWidth) noexcept { return juce::jmax (int (float (stripWidth) * 0.6f), 1); }

std::vector<KeyboardKey>
    buildKeyboardKeys (const FrequencyScale& scale, int width, int height, const notes::Tuning& tuning)
{
    const auto min = scale.getMinFrequency();
    const auto max = scale.getMaxFrequency();

    // Negated, so that a NaN gives no keys.
    if (! (min >= 0.0f && max > min))
        return {};

    const auto first =
        juce::jmax (int (std::floor (notes::noteForFrequency (double (min), tuning.concertPitch))), lowestInnerNote)
        - 1;
    const auto last =
        juce::jmin (int (std::ceil (notes::noteForFrequency (double (max), tuning.concertPitch))), highestInnerNote)
        + 1;
    const Rows rows { scale, height };
    std::vector<KeyboardKey> keys;

    for (int note = first; note <= last; ++note)
    {
        const auto centre = notes::frequencyForNote (note, tuning.concertPitch);

        KeyboardKey key {};
        key.noteNumber = note;
        key.lowFrequency = rows.clamp (float (centre / double (quarterTone)));
        key.highFrequency = rows.clamp (float (centre * double (quarterTone)));

        if (key.highFrequency <= key.lowFrequency)
            continue;

        key.isBlack = notes::isBlackKey (note);

        const auto top = rows.row (key.highFrequency);
        const auto keyHeight = juce::jmax (rows.row (key.lowFrequency) - top, 1);
        key.body = { 0, top, key.isBlack ? getBlackKeyWidth (width) : width, keyHeight };
        key.shape = makeShape (key, note == first, note == last, rows, width);

        key.hasLabel = notes::getPitchClass (note) == 0;

        if (key.hasLabel)
            key.label = notes::getNoteName (note, tuning.octaveOfMiddleC);

        const auto labelTop = int (std::floor (rows.exactRow (key.highFrequency)));
        const auto labelBottom = int (std::ceil (rows.exactRow (key.lowFrequency)));
        key.labelArea = { 0, labelTop, width, labelBottom - labelTop };

        keys.push_back (std::move (key));
    }

    return keys;
}

juce::Rectangle<int> getKeySeparator (const KeyboardKey& key, int stripWidth) noexcept
{
    if (key.body.getHeight() < thinnestKeyWithSeparator)
        return {};

    if (key.isBlack)
    {
        const auto x = getBlackKeyWidth (stripWidth);
        return { x, key.body.getY() + key.body.getHeight() / 2 - 1, stripWidth - x, 1 };
    }

    const auto pitchClass = notes::getPitchClass (key.noteNumber);
    const auto meetsWhiteKeyBelow = pitchClass == 0 || pitchClass == 5;
    return meetsWhiteKeyBelow ? juce::Rectangle { 0, key.body.getBottom() - 1, stripWidth, 1 }
                              : juce::Rectangle<int> {};
}

juce::Rectangle<int> getBlackKeyHighlight (const KeyboardKey& key, int stripWidth) noexcept
{
    return { 0,
             key.body.getY() + 1,
             juce::jmax (int (float (stripWidth) * 0.6f), 2) - 1,
             juce::jmax (key.body.getHeight(), 2) - 2 };
}

bool isLabelShown (const KeyboardKey& key, float fontHeight) noexcept
{
    return key.hasLabel && fontHeight <= float (std::abs (key.labelArea.getHeight()));
}

const KeyboardKey* findKeyForFrequency (const std::vector<KeyboardKey>& keys, float hz) noexcept
{
    const auto found =
        std::find_if (keys.begin(),
                      keys.end(),
                      [hz] (const KeyboardKey& key) { return key.lowFrequency <= hz && hz <= key.highFrequency; });

    return found != keys.end() ? &*found : nullptr;
}

} // namespace mk::orlo
