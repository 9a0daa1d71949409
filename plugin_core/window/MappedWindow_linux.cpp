// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MappedWindow.h"

#include "X11ActiveWindow.h"

namespace mk::pluginCore
{

bool isWindowMapped (const juce::ComponentPeer& peer)
{
    const juce::SharedResourcePointer<X11ActiveWindow> windows;
    return windows->isViewable (peer.getNativeHandle());
}

} // namespace mk::pluginCore
