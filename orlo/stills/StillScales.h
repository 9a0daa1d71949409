// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillRequest.h"
#include "orlo/analysis/FrequencyScale.h"

#include <memory>
#include <vector>

namespace mk::orlo
{

/** The scale of a still picture's rows, which nobody changes any more: any thread may use it, and destroy it. Takes about a
    millisecond. [message thread] */
[[nodiscard]] std::shared_ptr<const FrequencyScale> makeStillScale (const StillRequest& request);

/** Keeps the scales of the newest pictures, since most pictures have the same one as the picture before.
    [message thread] */
class StillScales
{
public:
    [[nodiscard]] std::shared_ptr<const FrequencyScale> obtain (const StillRequest& request);

private:
    struct Entry
    {
        float minHz, maxHz;
        int type;
        std::shared_ptr<const FrequencyScale> scale;
    };

    std::vector<Entry> entries; // the newest last
};

} // namespace mk::orlo
