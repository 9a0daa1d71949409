// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillPicture.h"
#include "StillPool.h"
#include "StillScales.h"

#include <juce_events/juce_events.h>

#include <functional>

namespace mk::orlo
{

class StillWork;

/** Makes one still picture after the other for a view, on the shared pool. [message thread]

    A new request cancels the one before it: its threads leave within one frame, at most 5 ms, and nobody waits for
    them. While the picture is being made, the view goes on showing the one before, of which it knows the range.
*/
class StillDrawer final : private juce::AsyncUpdater
{
public:
    /** Takes the process's pool, or another one. Throws std::system_error if there can be no thread. */
    explicit StillDrawer (StillPriority priority, std::shared_ptr<StillPool> pool = StillPool::obtain());

    /** Cancels. Waits for nothing. */
    ~StillDrawer() override;

    /** Gets each finished picture: a coarse one first where the whole would take longer than about 100 ms. Only pictures of the
        newest request come. */
    std::function<void (std::shared_ptr<const StillPicture>)> onPicture;

    /** Called instead if the picture cannot be made: the sound has been overwritten, or there is no memory. One line for
        the log, not translated. */
    std::function<void (const juce::String&)> onFailure;

    /** Starts on a picture. Does nothing if it is the one that is being made or was made last; then onPicture is not
        called again. The request must be valid, see StillRequest. Takes some
        milliseconds at most. */
    void draw (const StillRequest& request);

    /** Forgets the request, so that no picture of it comes any more. */
    void cancel();

    /** Whether the newest request's final picture is still to come. */
    [[nodiscard]] bool isDrawing() const noexcept { return work != nullptr; }

    /** The share of the newest request's work that is done, 0 .. 1; 1 if nothing is being made. */
    [[nodiscard]] double getProgress() const noexcept;

private:
    struct Mailbox;

    void handleAsyncUpdate() override;

    const StillPriority priority;
    const std::shared_ptr<StillPool> pool;
    const std::shared_ptr<Mailbox> mailbox;
    StillScales scales;
    const std::shared_ptr<StillMemory> memory = std::make_shared<StillMemory>();
    StillRequest newest;
    std::shared_ptr<StillWork> work; // null when it is finished

    JUCE_DECLARE_NON_COPYABLE (StillDrawer)
};

} // namespace mk::orlo
