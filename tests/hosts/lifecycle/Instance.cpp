// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Instance.h"

#include <pluginterfaces/vst/ivstaudioprocessor.h>

#include <cstdint>
#include <cstring>

namespace mk::orlo::lifecycle
{

using namespace Steinberg;

namespace
{
// This is enough for the window to be mapped, laid out and painted.
constexpr int callsUntilShown = 20;

template <typename Interface>
[[nodiscard]] IPtr<Interface> create (IPluginFactory& factory, const TUID classId, const TUID interfaceId)
{
    Interface* created = nullptr;
    factory.createInstance (classId, interfaceId, reinterpret_cast<void**> (&created));
    require (created != nullptr, "the factory made nothing");
    return owned (created);
}

[[nodiscard]] IPtr<Vst::IComponent> createComponent (IPluginFactory& factory)
{
    for (int32 i = 0; i < factory.countClasses(); ++i)
    {
        PClassInfo info;

        if (factory.getClassInfo (i, &info) == kResultOk && std::strcmp (info.category, kVstAudioEffectClass) == 0)
            return create<Vst::IComponent> (factory, info.cid, Vst::IComponent_iid);
    }

    require (false, "the bundle holds no effect");
    return {};
}

template <typename Object>
[[nodiscard]] IPtr<Vst::IConnectionPoint> getConnectionPoint (Object& object)
{
    Vst::IConnectionPoint* point = nullptr;
    object.queryInterface (Vst::IConnectionPoint_iid, reinterpret_cast<void**> (&point));
    require (point != nullptr, "component and controller cannot be connected");
    return owned (point);
}
} // namespace

Instance::Instance (const Bundle& bundle)
{
    const auto factory = owned (&bundle.getFactory());
    component = createComponent (*factory);
    require (component->initialize (nullptr) == kResultOk, "the component cannot be initialised");

    TUID controllerClass {};
    require (component->getControllerClassId (controllerClass) == kResultOk, "there is no controller");
    controller = create<Vst::IEditController> (*factory, controllerClass, Vst::IEditController_iid);
    require (controller->initialize (nullptr) == kResultOk, "the controller cannot be initialised");

    componentEnd = getConnectionPoint (*component);
    controllerEnd = getConnectionPoint (*controller);
    componentEnd->connect (controllerEnd);
    controllerEnd->connect (componentEnd);
}

Instance::~Instance()
{
    componentEnd->disconnect (controllerEnd);
    controllerEnd->disconnect (componentEnd);
    controller->terminate();
    component->terminate();
}

Editor::Editor (const Instance& instance, Screen& screenToUse, RunLoop& runLoop)
    : screen (screenToUse),
      window (screen.createWindow()),
      view (owned (instance.getController().createView (Vst::ViewType::kEditor)))
{
    require (view.get() != nullptr, "there is no editor");
    view->setFrame (&runLoop);
    require (view->attached (reinterpret_cast<void*> (std::uintptr_t (window)), kPlatformTypeX11EmbedWindowID)
                 == kResultOk,
             "the editor cannot be put into a window");
    runLoop.serve (callsUntilShown);
}

Editor::~Editor()
{
    view->removed();
    view->setFrame (nullptr);
    screen.destroyWindow (window);
}

} // namespace mk::orlo::lifecycle
