// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

namespace mk::pluginCore::GuiUtils
{

/** Reports whether a component is actually on the screen: visible in its window, and that window visible too.
    [message thread] */
class ComponentVisibilityObserver
{
public:
    /** Watches the component, which must outlive the observer. The callback is called at every change, and
        at once if the component is visible now. */
    ComponentVisibilityObserver (juce::Component& component, std::function<void (bool)> onVisibilityChanged);
    ~ComponentVisibilityObserver();

    /** Checks again now, as the observer does by itself when the system reports a change to the window: a
        host can minimise or hide its window without a callback to any component. */
    void checkNow();

private:
    class Pimpl;
    std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ComponentVisibilityObserver)
};

} // namespace mk::pluginCore::GuiUtils
