// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/NoteNames.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{

TEST (NoteNames, MiddleCHasTheOctaveOfTheHost)
{
    EXPECT_EQ (notes::getNoteName (60, 3), "C3");
    EXPECT_EQ (notes::getNoteName (60, 4), "C4");
    EXPECT_EQ (notes::getNoteName (69, 3), "A3");
    EXPECT_EQ (notes::getNoteName (69, 4), "A4");
    EXPECT_EQ (notes::getNoteName (36, 4), "C2");
    EXPECT_EQ (notes::getNoteName (120, 4), "C9");
}

TEST (NoteNames, NameAllTwelveClasses)
{
    juce::StringArray found;

    for (int note = 60; note < 72; ++note)
        found.add (notes::getNoteName (note, 3));

    EXPECT_EQ (found.joinIntoString (" "), "C3 C#3 D3 D#3 E3 F3 F#3 G3 G#3 A3 A#3 B3");
}

TEST (NoteNames, HaveNegativeOctavesAtTheBottomAndAreEmptyOutsideMidi)
{
    EXPECT_EQ (notes::getNoteName (0, 3), "C-2");
    EXPECT_EQ (notes::getNoteName (11, 4), "B-1");
    EXPECT_EQ (notes::getNoteName (127, 3), "G8");
    EXPECT_EQ (notes::getNoteName (-1, 3), "");
    EXPECT_EQ (notes::getNoteName (128, 3), "");
}

TEST (NoteNames, SixHostsCallMiddleCTheFourthOctaveAndAllOthersTheThird)
{
    using Host = juce::PluginHostType;

    for (const auto host : { Host::FruityLoops,
                             Host::Reaper,
                             Host::Tracktion3,
                             Host::TracktionGeneric,
                             Host::TracktionWaveform,
                             Host::ViennaEnsemblePro })
        EXPECT_EQ (notes::getOctaveOfMiddleC (host), 4) << host;

    for (const auto host : { Host::UnknownHost, Host::AbletonLive10, Host::SteinbergCubaseGeneric, Host::Ardour })
        EXPECT_EQ (notes::getOctaveOfMiddleC (host), 3) << host;

    EXPECT_EQ (notes::getOctaveOfMiddleC(), 3) << "the default, as the tests run outside of any host";
}

TEST (NoteNames, NotesAndFrequenciesAreInverse)
{
    EXPECT_DOUBLE_EQ (notes::frequencyForNote (69, 440.0), 440.0);
    EXPECT_DOUBLE_EQ (notes::frequencyForNote (81, 440.0), 880.0);
    EXPECT_DOUBLE_EQ (notes::frequencyForNote (57, 443.0), 221.5);
    EXPECT_DOUBLE_EQ (notes::noteForFrequency (886.0, 443.0), 81.0);

    for (int note = 0; note < 128; ++note)
        EXPECT_NEAR (notes::noteForFrequency (notes::frequencyForNote (note, 440.0), 440.0), double (note), 1.0e-9);
}

TEST (NoteNames, TheNoteOfZeroHertzIsVeryLowButFinite)
{
    EXPECT_NEAR (notes::noteForFrequency (0.0, 440.0), -275.5, 0.1);
    EXPECT_EQ (notes::noteForFrequency (-5.0, 440.0), notes::noteForFrequency (0.0, 440.0));
    EXPECT_EQ (notes::getPitchClass (-1), 11);
}

TEST (NoteNames, FiveOfTwelveKeysAreBlack)
{
    juce::String pattern;

    for (int note = 48; note < 60; ++note)
        pattern << (notes::isBlackKey (note) ? 'b' : 'w');

    EXPECT_EQ (pattern, "wbwbwwbwbwbw");
}

} // namespace
} // namespace mk::orlo::test
