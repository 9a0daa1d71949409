// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MappedWindow.h"

namespace mk::pluginCore
{

bool isWindowMapped (const juce::ComponentPeer&) { return true; }

} // namespace mk::pluginCore
