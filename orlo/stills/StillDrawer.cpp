// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillDrawer.h"

#include "StillWork.h"

#include <exception>
#include <tuple>
#include <utility>

namespace mk::orlo
{

/** Where the pool's threads leave what they have made. It outlives the drawer, so that none of them has to be waited
    for. */
struct StillDrawer::Mailbox
{
    std::mutex mutex; // guards the members below
    StillDrawer* owner = nullptr;
    std::uint64_t newest = 0; // counts the requests; what older ones leave is thrown away
    std::shared_ptr<const StillPicture> picture;
    juce::String failure;
    bool isEnd = false; // whether nothing more comes of the newest request

    void leave (std::uint64_t request, std::shared_ptr<const StillPicture> made, const juce::String& why)
    {
        const std::lock_guard lock (mutex);

        if (owner == nullptr || request != newest)
            return;

        isEnd = made == nullptr || ! made->isCoarse();
        picture = std::move (made);
        failure = why;
        owner->triggerAsyncUpdate();
    }

    /** Starts a request, or none, and throws away what is left of the others. */
    [[nodiscard]] std::uint64_t begin()
    {
        const std::lock_guard lock (mutex);
        picture = nullptr;
        failure = {};
        isEnd = false;
        return ++newest;
    }
};

namespace
{
[[nodiscard]] juce::String describe (const std::exception_ptr& error)
{
    try
    {
        std::rethrow_exception (error);
    }
    catch (const std::bad_alloc&)
    {
        return "not enough memory";
    }
    catch (const std::exception& exception)
    {
        return juce::String::fromUTF8 (exception.what());
    }
    catch (...)
    {
        return "unknown error";
    }
}
} // namespace

StillDrawer::StillDrawer (StillPriority howUrgent, std::shared_ptr<StillPool> threads)
    : priority (howUrgent), pool (std::move (threads)), mailbox (std::make_shared<Mailbox>())
{
    mailbox->owner = this;
}

StillDrawer::~StillDrawer()
{
    cancel();

    {
        const std::lock_guard lock (mailbox->mutex);
        mailbox->owner = nullptr;
    }

    cancelPendingUpdate();
}

void StillDrawer::draw (const StillRequest& request)
{
    jassert (request.source != nullptr && request.length > 0.0 && request.width > 0 && request.height > 0);

    if (newest.source != nullptr && showsTheSame (request, newest))
        return;

    cancel();
    newest = request;

    const auto number = mailbox->begin();
    const auto leave = [box = mailbox, number] (std::shared_ptr<const StillPicture> picture)
    { box->leave (number, std::move (picture), {}); };
    const auto leaveFailure = [box = mailbox, number] (const std::exception_ptr& error)
    { box->leave (number, nullptr, describe (error)); };

    try
    {
        work = std::make_shared<StillWork> (
            request, scales.obtain (request), memory, StillWork::Coarse::ifSlow, leave, leaveFailure);
        pool->add (work, priority);
    }
    catch (const std::bad_alloc&)
    {
        work = nullptr;
        leaveFailure (std::current_exception());
    }
}

void StillDrawer::cancel()
{
    newest = {};
    std::ignore = mailbox->begin();

    if (work == nullptr)
        return;

    work->cancel();
    work = nullptr;
    pool->wake();
}

double StillDrawer::getProgress() const noexcept { return work != nullptr ? work->getProgress() : 1.0; }

void StillDrawer::handleAsyncUpdate()
{
    std::shared_ptr<const StillPicture> picture;
    juce::String failure;

    {
        const std::lock_guard lock (mailbox->mutex);
        picture = std::exchange (mailbox->picture, nullptr);
        failure = std::exchange (mailbox->failure, {});

        if (std::exchange (mailbox->isEnd, false))
            work = nullptr;
    }

    if (picture != nullptr && onPicture != nullptr)
        onPicture (picture);
    else if (failure.isNotEmpty() && onFailure != nullptr)
        onFailure (failure);
}

} // namespace mk::orlo
