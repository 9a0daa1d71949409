// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ActiveApplication.h"

#include "X11ActiveWindow.h"

namespace mk::pluginCore
{

bool isApplicationActive (const juce::Component& component)
{
    // juce::Process::isForegroundProcess() only knows whether a window of this copy of JUCE has the keyboard
    // focus, and an editor inside a host's window seldom has.
    const auto* const peer = component.getPeer();
    const juce::SharedResourcePointer<X11ActiveWindow> windows;
    return windows->belongsTo (peer != nullptr ? peer->getNativeHandle() : nullptr);
}

} // namespace mk::pluginCore
