// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillPicture.h"

#include <functional>

namespace mk::orlo
{

/** Makes a still picture and waits for it, while threads of its own do the work. Reads the source from front to back,
    each sample once. Calls the progress function several times a second with the share that is done, 0 .. 1, and with 1 at the
    end. Returns null if that function returns false. Throws what the source throws, std::bad_alloc and
    std::system_error. [message thread]
    @param numThreads  at least 1; the picture does not depend on it */
[[nodiscard]] std::shared_ptr<const StillPicture>
    makeStill (const StillRequest& request, int numThreads, const std::function<bool (double done)>& progress);

} // namespace mk::orlo
