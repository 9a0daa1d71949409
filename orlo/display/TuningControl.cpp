// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TuningControl.h"

namespace mk::orlo
{
TuningControl::TuningControl (data::UIView& view)
    : settings (view), concertPitch (view.getConcertPitchValue()), middleC (view.getMiddleCValue())
{
    entry.onEntered = [this] (double hz) { choosePitch (hz); };
    concertPitch.addListener (this);
    middleC.addListener (this);
    update();
}

TuningControl::~TuningControl()
{
    concertPitch.removeListener (this);
    middleC.removeListener (this);
}

void TuningControl::update()
{
    const notes::Tuning wanted { settings.getMiddleC().value_or (notes::getOctaveOfMiddleC()),
                                 settings.getConcertPitch() };

    if (wanted == tuning)
        return;

    tuning = wanted;

    if (onChanged != nullptr)
        onChanged();
}

void TuningControl::describe (contextMenu::State& state) const
{
    state.concertPitch = tuning.concertPitch;
    state.middleC = settings.getMiddleC();
    state.hostsMiddleC = notes::getOctaveOfMiddleC();
}

void TuningControl::choosePitch (double hz)
{
    settings.setConcertPitch (hz);
    update();

    if (onChosen != nullptr)
        onChosen();
}

void TuningControl::carryOut (int menuItem)
{
    if (const auto pitch = contextMenu::findConcertPitch (menuItem))
    {
        choosePitch (*pitch);
    }
    else if (menuItem == contextMenu::otherConcertPitch)
    {
        entry.open (tuning.concertPitch);
    }
    else if (const auto octave = contextMenu::findMiddleC (menuItem))
    {
        settings.setMiddleC (*octave);
        update();

        if (onChosen != nullptr)
            onChosen();
    }
}

} // namespace mk::orlo
