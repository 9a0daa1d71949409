// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ComponentVisibilityObserver.h"

#include "MappedWindow.h"
#include "plugin_core/window/WindowPoller.h"

namespace mk::pluginCore::GuiUtils
{

class ComponentVisibilityObserver::Pimpl final : private juce::ComponentMovementWatcher
{
public:
    Pimpl (juce::Component& componentToWatch, std::function<void (bool)> callbackToUse)
        : juce::ComponentMovementWatcher (&componentToWatch),
          component (componentToWatch),
          callback (std::move (callbackToUse)),
          pollerClient (componentToWatch,
                        [this] (bool windowMayHaveChanged)
                        {
                            if (windowMayHaveChanged)
                                update();
                        })
    {
        update();
    }

    void update()
    {
        const auto wasVisible = componentShowing && peerShowing;
        peerShowing = isPeerShowing();
        componentShowing = component.isShowing();

        // The system may still report a window as mapped that has just been hidden.
        wasMapped = wasMapped && componentShowing;
        const auto visible = componentShowing && peerShowing;

        if (visible != wasVisible)
            callback (visible);
    }

private:
    [[nodiscard]] bool isPeerShowing()
    {
        const auto* onDesktop = &component;

        while (onDesktop != nullptr && ! onDesktop->isOnDesktop())
            onDesktop = onDesktop->getParentComponent();

        const auto* const peer = onDesktop != nullptr ? onDesktop->getPeer() : nullptr;

        if (peer == nullptr)
            return false;

        // The first query also subscribes to the window's events, so it must come before the other checks.
        const auto isMapped = isWindowMapped (*peer);

        if (! peer->isShowing())
            return false;

        // A new window takes a moment to be mapped, so it counts as shown until it has been mapped once.
        wasMapped = wasMapped || isMapped;
        return isMapped || ! wasMapped;
    }

    using juce::ComponentMovementWatcher::componentMovedOrResized;
    using juce::ComponentMovementWatcher::componentVisibilityChanged;

    void componentMovedOrResized (bool, bool) override {}
    void componentPeerChanged() override
    {
        wasMapped = false;
        update();
    }

    void componentVisibilityChanged() override { update(); }

    juce::Component& component;
    std::function<void (bool)> callback;
    bool componentShowing = false, peerShowing = false;
    bool wasMapped = false; // since the component last became visible in its present window
    const WindowPoller::Client pollerClient;
};

ComponentVisibilityObserver::ComponentVisibilityObserver (juce::Component& component,
                                                          std::function<void (bool)> onVisibilityChanged)
    : pimpl (std::make_unique<Pimpl> (component, std::move (onVisibilityChanged)))
{
}

ComponentVisibilityObserver::~ComponentVisibilityObserver() = default;

void ComponentVisibilityObserver::checkNow() { pimpl->update(); }

} // namespace mk::pluginCore::GuiUtils
