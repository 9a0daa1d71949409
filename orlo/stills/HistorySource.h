// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillRequest.h"
#include "orlo/analysis/KeptSound.h"
#include "orlo/analysis/Source.h"

#include <memory>
#include <stdexcept>

namespace mk::orlo
{

/** Thrown when a picture needs sound that has been overwritten by newer one. */
struct SoundOverwritten final : std::runtime_error
{
    SoundOverwritten() : std::runtime_error ("the sound is not kept any more") {}
};

/** One signal of the kept sound, as the analysis gets it, with silence outside of a range. Several threads may read at
    the same time and any position. */
class HistorySource final : public SampleSource
{
public:
    /** Shows what is kept at this moment. If more sound is kept later, the older part can get lost.
        @param what  all but Source::loudest, which is two signals, see setSource(); of one channel all are the same */
    explicit HistorySource (const std::shared_ptr<const KeptSound>& sound, Source what = Source::mean);

    /** Shows the samples from start up to, not including, end. */
    HistorySource (std::shared_ptr<const KeptSound> sound,
                   std::int64_t start,
                   std::int64_t end,
                   Source what = Source::mean);

    [[nodiscard]] std::int64_t getStart() const noexcept { return start; }
    [[nodiscard]] std::int64_t getEnd() const noexcept { return end; }

    /** Throws SoundOverwritten. Allocates nothing else. */
    void read (std::int64_t position, std::span<float> destination) override;

private:
    void readMixed (std::int64_t position, std::span<float> destination) const;
    void readChannel (int channel, std::int64_t position, std::span<float> destination) const;

    const std::shared_ptr<const KeptSound> sound;
    const std::int64_t start, end;
    const Source what;
};

/** Lets a request show a source of what is kept at this moment; a second signal only if that is Source::loudest. */
void setSource (StillRequest& request, const std::shared_ptr<const KeptSound>& sound, Source what);

} // namespace mk::orlo
