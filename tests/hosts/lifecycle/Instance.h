// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Bundle.h"
#include "RunLoop.h"
#include "Screen.h"

#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstmessage.h>

namespace mk::orlo::lifecycle
{

/** The plug-in's component and its controller, connected. */
class Instance
{
public:
    /** The bundle must outlive the instance. */
    explicit Instance (const Bundle& bundle);
    ~Instance();

    Instance (const Instance&) = delete;
    Instance& operator= (const Instance&) = delete;

    [[nodiscard]] Steinberg::Vst::IEditController& getController() const noexcept { return *controller; }

private:
    Steinberg::IPtr<Steinberg::Vst::IComponent> component;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
    Steinberg::IPtr<Steinberg::Vst::IConnectionPoint> componentEnd, controllerEnd;
};

/** An instance's editor in a window of the host. */
class Editor
{
public:
    /** Opens the editor and runs the loop for a while, so that it has been painted. All must outlive the editor. */
    Editor (const Instance& instance, Screen& screen, RunLoop& runLoop);
    ~Editor();

    Editor (const Editor&) = delete;
    Editor& operator= (const Editor&) = delete;

private:
    Screen& screen;
    const unsigned long window;
    const Steinberg::IPtr<Steinberg::IPlugView> view;
};

} // namespace mk::orlo::lifecycle
