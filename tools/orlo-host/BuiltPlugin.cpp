// SPDX-License-Identifier: AGPL-3.0-or-later
#include "BuiltPlugin.h"

#include "PluginLoader.h"

namespace mk::orlo::host
{

juce::File getBuiltPlugin()
{
    return findPlugin (juce::File::getSpecialLocation (juce::File::currentExecutableFile).getParentDirectory(),
                       ORLO_HOST_PLUGIN);
}

} // namespace mk::orlo::host
