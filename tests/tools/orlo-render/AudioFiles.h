// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tests/support/Signals.h"

#include <juce_audio_formats/juce_audio_formats.h>

namespace mk::orlo::test
{

/** One signal for each channel, all of the same length. */
using Channels = std::vector<Samples>;

/** Writes an audio file in the format of its extension. Ends the program if that fails. */
void writeAudioFile (const juce::File& file, const Channels& channels, double sampleRate, int bitsPerSample = 16);

/** Cuts a file off after some of its bytes. */
void truncateFile (const juce::File& file, juce::int64 numBytes);

} // namespace mk::orlo::test
