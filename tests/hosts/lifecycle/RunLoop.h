// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <pluginterfaces/gui/iplugview.h>

#include <vector>

namespace mk::orlo::lifecycle
{

/** The frame that a host gives its editors, and the run loop that comes with it. The plug-in uses it from the
    thread that made it. */
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // the interfaces are counted, never deleted through a base
class RunLoop final : public Steinberg::IPlugFrame, public Steinberg::Linux::IRunLoop
{
public:
    virtual ~RunLoop() = default;

    /** Serves the plug-in until it has been called this many times. Ends the program if nothing comes. */
    void serve (int numCalls);

    Steinberg::tresult PLUGIN_API resizeView (Steinberg::IPlugView* view, Steinberg::ViewRect* size) override;
    Steinberg::tresult PLUGIN_API registerEventHandler (Steinberg::Linux::IEventHandler* handler,
                                                        Steinberg::Linux::FileDescriptor descriptor) override;
    Steinberg::tresult PLUGIN_API unregisterEventHandler (Steinberg::Linux::IEventHandler* handler) override;
    Steinberg::tresult PLUGIN_API registerTimer (Steinberg::Linux::ITimerHandler*,
                                                 Steinberg::Linux::TimerInterval) override;
    Steinberg::tresult PLUGIN_API unregisterTimer (Steinberg::Linux::ITimerHandler*) override;

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID id, void** object) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }

private:
    struct Watch
    {
        Steinberg::Linux::IEventHandler* handler;
        int descriptor;
    };

    std::vector<Watch> watches;
};
#pragma GCC diagnostic pop

} // namespace mk::orlo::lifecycle
