// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

namespace mk::pluginCore::GuiUtils
{

/** Tells whether a component can really be seen: showing in its window, and that window showing too.
    [message thread] */
class ComponentVisibilityObserver
{
public:
    /** Watches the component, which must outlive the observer. The callback gets every change, and the
        present state if that is "visible". */
    ComponentVisibilityObserver (juce::Component& component, std::function<void (bool)> onVisibilityChanged);
    ~ComponentVisibilityObserver();

    /** Looks again now, as the observer does by itself when the system tells of a change to the window: a
        host can minimise or hide its window without any component hearing of it. */
    void checkNow();

private:
    class Pimpl;
    std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ComponentVisibilityObserver)
};

} // namespace mk::pluginCore::GuiUtils
