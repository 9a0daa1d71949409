// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::pluginCore
{

/** Finds out by polling what no host tells an editor: that its window was moved, that the host's
    application lost or got the focus, and whether the window stands on a high-density display. The owner
    calls checkNow() again and again. [message thread] */
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

    /** What the detector asks the system. */
    struct System
    {
        std::function<bool (const juce::Component&)> isApplicationActive;
        std::function<DisplayList()> getDisplays;

        [[nodiscard]] static System makeReal();
    };

    /** Watches the window that the component lies in. The component may go before the detector does. */
    explicit PluginMoveDetector (juce::Component& componentToWatch, System systemToUse = System::makeReal());

    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

    /** One step: looks, and tells the listeners of what is new. */
    void checkNow();

    /** The display that holds most of the area; of equal ones the last. Null if the list is empty. */
    [[nodiscard]] static const juce::Displays::Display* findDisplay (const DisplayList& displays,
                                                                     juce::Rectangle<int> area) noexcept;

    /** Whether this many physical pixels for a logical one are an even multiple: 2 and 4 are, 1.5 is not. */
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
