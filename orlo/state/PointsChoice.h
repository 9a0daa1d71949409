// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/PointsKept.h"

#include <juce_data_structures/juce_data_structures.h>

namespace mk::orlo::data
{

/** Which points of Enhanced the user wants to see. It is no parameter, so that the host's list stays as it is; presets
    and sessions hold it in the product's data, unless it is all of them. [message thread] */
class PointsChoice final : private juce::ValueTree::Listener
{
public:
    /** The name of the property. */
    static constexpr auto property = "POINTS";

    /** @param productData  whose content a preset or a session may replace at any time */
    explicit PointsChoice (juce::ValueTree productData);
    ~PointsChoice() override;

    /** Read at every tick of the view, so this parses nothing. */
    [[nodiscard]] PointsKept get() const noexcept { return current; }

    /** One step of undo; nothing if it is chosen already. */
    void set (PointsKept chosen, juce::UndoManager& undoManager);

private:
    void valueTreePropertyChanged (juce::ValueTree&, const juce::Identifier&) override { read(); }
    void read();

    juce::ValueTree data;
    PointsKept current = PointsKept::all;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PointsChoice)
};

} // namespace mk::orlo::data
