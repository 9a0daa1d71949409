// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::pluginCore
{

/** Polls for changes that hosts do not report to an editor: its window has moved, the host's application
    has lost or gained the focus, or the window is now on a high-density display. The owner
    calls checkNow() periodically. [message thread] */
class PluginMoveDetector
{
public:
    using DisplayList = juce::Array<juce::Displays::Display>;

    class Listener
    {
    public:
        virtual ~Listener() = default;

        virtual void windowMoved (PluginMoveDetector&) = 0;
        virtual void applicationActiveChanged (PluginMoveDetector&, bool wentInactive) = 0;
        virtual void retinaStateChanged (PluginMoveDetector&, bool onRetinaDisplay) = 0;
    };

    /** The queries that the detector makes to the system. */
    struct System
    {
        std::function<bool (const juce::Component&)> isApplicationActive;
        std::function<DisplayList()> getDisplays;

        [[nodiscard]] static System makeReal();
    };

    /** Watches the window that contains the component. The component may be deleted before the detector. */
    explicit PluginMoveDetector (juce::Component& componentToWatch, System systemToUse = System::makeReal());

    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

    /** One polling step: checks for changes and notifies the listeners. */
    void checkNow();

    /** The display with the largest share of the area; the last one on a tie. Null if the list is empty. */
    [[nodiscard]] static const juce::Displays::Display* findDisplay (const DisplayList& displays,
                                                                     juce::Rectangle<int> area) noexcept;

    /** Whether the scale, in physical pixels per logical pixel, is an even integer: 2 and 4 are, 1.5 is not. */
    [[nodiscard]] static bool isHighDensity (double scale) noexcept;

private:
    /** False if the application is not the active one. */
    [[nodiscard]] bool updateApplicationActive();

    /** Null while there is no window or it is hidden. */
    [[nodiscard]] juce::ComponentPeer* findPeer();
    void updateRetinaState();

    juce::ListenerList<Listener> listeners;
    const juce::WeakReference<juce::Component> component;
    juce::WeakReference<juce::Component> topLevelComponent;
    juce::Point<float> lastPosition;
    bool applicationWasActive = false, onRetinaDisplay = false;
    const System system;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginMoveDetector)
};

} // namespace mk::pluginCore
