// SPDX-License-Identifier: AGPL-3.0-or-later
#include "BuiltPlugin.h"

namespace mk::orlo::host
{

juce::File getBuiltPlugin()
{
    return juce::File::getSpecialLocation (juce::File::currentExecutableFile)
        .getParentDirectory()
        .getChildFile (ORLO_HOST_PLUGIN);
}

} // namespace mk::orlo::host
