// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/KeptSound.h"

#include <juce_core/juce_core.h>

#include <functional>

namespace mk::orlo
{

enum class SoundFormat
{
    wav, /**< 32 bits as floats, so that nothing is lost: a picture of the file is that of the sound. */
    flac /**< 24 bits; what is beyond full scale is cut off. */
};

/** Writes a range of the kept sound, from start up to, not including, end, with all of its channels. Only what is kept
    is written, even if the range reaches beyond it. Any thread.

    @param progress  gets the share that is done, 0 .. 1; if it returns false, the file stays incomplete
    @return          failed if the sound has been overwritten meanwhile, if nothing is in the range or if the format does
                     not have the sample rate, with a line that is not translated. Failed writes are reported by the
                     stream. */
[[nodiscard]] juce::Result writeSound (const KeptSound& sound,
                                       std::int64_t start,
                                       std::int64_t end,
                                       SoundFormat format,
                                       juce::OutputStream& stream,
                                       const std::function<bool (double done)>& progress);

} // namespace mk::orlo
