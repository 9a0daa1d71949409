// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SectionReader.h"

#include <algorithm>

namespace mk::orlo
{

bool SectionReader::next (Section& section, std::vector<float>& samples)
{
    if (nextIndex >= plan.getNumSections())
        return false;

    section = plan.getSection (nextIndex++);
    samples.resize (size_t (section.numSamples));
    std::copy (overlap.begin(), overlap.end(), samples.begin());

    source.read (section.firstSample + std::int64_t (overlap.size()), std::span (samples).subspan (overlap.size()));

    overlap.assign (samples.end() - std::ptrdiff_t (plan.getOverlap()), samples.end());
    return true;
}

} // namespace mk::orlo
