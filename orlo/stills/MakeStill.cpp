// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MakeStill.h"

#include "StillScales.h"
#include "StillWork.h"

#include <chrono>
#include <future>

namespace mk::orlo
{
namespace
{
using namespace std::chrono_literals;

// Often enough for a bar that moves and an interruption that seems immediate.
constexpr auto progressInterval = 50ms;
} // namespace

std::shared_ptr<const StillPicture>
    makeStill (const StillRequest& request, int numThreads, const std::function<bool (double done)>& progress)
{
    std::promise<std::shared_ptr<const StillPicture>> promise;
    auto result = promise.get_future();

    const auto work = std::make_shared<StillWork> (
        request,
        makeStillScale (request),
        std::make_shared<StillMemory>(),
        StillWork::Coarse::never,
        [&promise] (std::shared_ptr<const StillPicture> picture) { promise.set_value (std::move (picture)); },
        [&promise] (std::exception_ptr error) { promise.set_exception (std::move (error)); });

    // Destroyed first, so that no thread still has the promise.
    StillPool pool (numThreads);
    pool.add (work, StillPriority::onScreen);

    while (result.wait_for (progressInterval) != std::future_status::ready)
        if (! progress (work->getProgress()))
        {
            work->cancel();
            return nullptr;
        }

    auto picture = result.get();
    return progress (1.0) ? picture : nullptr;
}

} // namespace mk::orlo
