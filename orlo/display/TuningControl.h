// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ConcertPitchEntry.h"
#include "ContextMenu.h"
#include "NoteNames.h"

#include "orlo/state/TuningSettings.h"

#include <functional>

namespace mk::orlo
{

/** The choice of the concert pitch and of the name of middle C: their part of the picture's menu, and what follows
    from session and user. [message thread] */
class TuningControl final : private juce::Value::Listener
{
public:
    /** The view must outlive the object. */
    explicit TuningControl (data::UIView& view);
    ~TuningControl() override;

    /** Called when the tuning has changed, by the user or by another session. */
    std::function<void()> onChanged;

    /** Called when the user has chosen, after onChanged. */
    std::function<void()> onChosen;

    [[nodiscard]] const notes::Tuning& getTuning() const noexcept { return tuning; }

    /** Writes the tuning into the state of the menu. */
    void describe (contextMenu::State& state) const;

    /** Carries out an item of the menu, if it is one of the tuning's. */
    void carryOut (int menuItem);

    /** Hidden; to be added to the picture. */
    [[nodiscard]] ConcertPitchEntry& getEntry() noexcept { return entry; }

private:
    void valueChanged (juce::Value&) override { update(); }
    void update();
    void choosePitch (double hz);

    data::TuningSettings settings;
    juce::Value concertPitch, middleC;
    notes::Tuning tuning;
    ConcertPitchEntry entry;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TuningControl)
};

} // namespace mk::orlo
