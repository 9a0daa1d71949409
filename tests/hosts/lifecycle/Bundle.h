// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/ipluginbase.h>

#include <string>

namespace mk::orlo::lifecycle
{

/** The plug-in's shared object, loaded as by a host that knows only the VST3 interface. Ends the program with a
    message if that fails. */
class Bundle
{
public:
    explicit Bundle (const std::string& binary);

    /** Unloads the shared object; the system keeps it mapped if something still needs it. */
    ~Bundle();

    Bundle (const Bundle&) = delete;
    Bundle& operator= (const Bundle&) = delete;

    /** The bundle's own factory. The caller releases it before the bundle is unloaded. */
    [[nodiscard]] Steinberg::IPluginFactory& getFactory() const;

private:
    void* const handle;
};

/** Ends the program with the message and the exit status 2 if the condition does not hold. */
void require (bool condition, const std::string& message);

} // namespace mk::orlo::lifecycle
