// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ActiveApplication.h"

namespace mk::pluginCore
{

bool isApplicationActive (const juce::Component&) { return juce::Process::isForegroundProcess(); }

} // namespace mk::pluginCore
