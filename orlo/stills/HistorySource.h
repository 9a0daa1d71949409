// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SampleSource.h"
#include "orlo/analysis/KeptSound.h"

#include <memory>
#include <stdexcept>

namespace mk::orlo
{

/** Thrown when a picture needs sound that has been overwritten by newer one. */
struct SoundOverwritten final : std::runtime_error
{
    SoundOverwritten() : std::runtime_error ("the sound is not kept any more") {}
};

/** The kept sound as the mean of its channels, as the analysis gets it, with silence outside of a range. Several threads
    may read at the same time and any position. */
class HistorySource final : public SampleSource
{
public:
    /** Shows what is kept at this moment. If more sound is kept later, the older part can get lost. */
    explicit HistorySource (std::shared_ptr<const KeptSound> sound);

    /** Shows the samples from start up to, not including, end. */
    HistorySource (std::shared_ptr<const KeptSound> sound, std::int64_t start, std::int64_t end);

    [[nodiscard]] std::int64_t getStart() const noexcept { return start; }
    [[nodiscard]] std::int64_t getEnd() const noexcept { return end; }

    /** Throws SoundOverwritten. Allocates nothing else. */
    void read (std::int64_t position, std::span<float> destination) override;

private:
    void readMean (std::int64_t position, std::span<float> destination) const;

    const std::shared_ptr<const KeptSound> sound;
    const std::int64_t start, end;
};

} // namespace mk::orlo
