// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Bundle.h"

#include <cstdlib>
#include <iostream>

#include <dlfcn.h>

namespace mk::orlo::lifecycle
{
namespace
{
template <typename Function>
[[nodiscard]] Function find (void* library, const char* name)
{
    auto* const symbol = dlsym (library, name);
    require (symbol != nullptr, std::string ("the bundle has no ") + name);
    return reinterpret_cast<Function> (symbol);
}
} // namespace

Bundle::Bundle (const std::string& binary) : handle (dlopen (binary.c_str(), RTLD_LAZY | RTLD_LOCAL))
{
    require (handle != nullptr, "cannot load " + binary);
    require (find<bool (*) (void*)> (handle, "ModuleEntry") (handle), "ModuleEntry failed");
}

Bundle::~Bundle()
{
    require (find<bool (*)()> (handle, "ModuleExit")(), "ModuleExit failed");
    dlclose (handle);
}

Steinberg::IPluginFactory& Bundle::getFactory() const
{
    auto* const factory = find<Steinberg::IPluginFactory* (*) ()> (handle, "GetPluginFactory")();
    require (factory != nullptr, "GetPluginFactory gave nothing");
    return *factory;
}

void require (bool condition, const std::string& message)
{
    if (condition)
        return;

    std::cerr << message << std::endl;
    std::_Exit (2);
}

} // namespace mk::orlo::lifecycle
