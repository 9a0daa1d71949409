// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RunLoop.h"

#include "Bundle.h"

#include <algorithm>

#include <poll.h>

namespace mk::orlo::lifecycle
{

using namespace Steinberg;

void RunLoop::serve (int numCalls)
{
    constexpr int patienceMs = 20000;

    while (numCalls > 0)
    {
        std::vector<pollfd> waiting;

        for (const auto& watch : watches)
            waiting.push_back ({ watch.descriptor, POLLIN, 0 });

        require (poll (waiting.data(), waiting.size(), patienceMs) > 0, "the editor does nothing");

        for (const auto& ready : waiting)
        {
            // A call may have changed what is watched.
            const auto watch = std::find_if (
                watches.begin(), watches.end(), [&ready] (const Watch& w) { return w.descriptor == ready.fd; });

            if (ready.revents == 0 || watch == watches.end())
                continue;

            watch->handler->onFDIsSet (ready.fd);
            --numCalls;
        }
    }
}

tresult PLUGIN_API RunLoop::resizeView (IPlugView* view, ViewRect* size) { return view->onSize (size); }

tresult PLUGIN_API RunLoop::registerEventHandler (Linux::IEventHandler* handler, Linux::FileDescriptor descriptor)
{
    watches.push_back ({ handler, descriptor });
    return kResultOk;
}

tresult PLUGIN_API RunLoop::unregisterEventHandler (Linux::IEventHandler* handler)
{
    std::erase_if (watches, [handler] (const Watch& watch) { return watch.handler == handler; });
    return kResultOk;
}

tresult PLUGIN_API RunLoop::registerTimer (Linux::ITimerHandler*, Linux::TimerInterval) { return kNotImplemented; }

tresult PLUGIN_API RunLoop::unregisterTimer (Linux::ITimerHandler*) { return kNotImplemented; }

tresult PLUGIN_API RunLoop::queryInterface (const TUID id, void** object)
{
    *object = nullptr;

    if (FUnknownPrivate::iidEqual (id, IPlugFrame_iid) || FUnknownPrivate::iidEqual (id, FUnknown_iid))
        *object = static_cast<IPlugFrame*> (this);
    else if (FUnknownPrivate::iidEqual (id, Linux::IRunLoop_iid))
        *object = static_cast<Linux::IRunLoop*> (this);

    return *object != nullptr ? kResultOk : kNoInterface;
}

} // namespace mk::orlo::lifecycle
