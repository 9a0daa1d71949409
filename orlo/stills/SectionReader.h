// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SampleSource.h"
#include "SectionPlan.h"

#include <vector>

namespace mk::orlo
{

/** Reads the samples of one section after the other, and each sample only once. One thread at a time. */
class SectionReader
{
public:
    /** The source must outlive the reader and must not be used by others meanwhile. */
    SectionReader (SampleSource& audio, const SectionPlan& sections) : source (audio), plan (sections) {}

    /** Reads the next section. Returns false if there is none. Throws what SampleSource::read() throws. Allocates
        only if the samples have no room yet. */
    [[nodiscard]] bool next (Section& section, std::vector<float>& samples);

private:
    SampleSource& source;
    const SectionPlan plan;
    std::int64_t nextIndex = 0;
    std::vector<float> overlap; // the end of the previous section, with which the next one starts
};

} // namespace mk::orlo
