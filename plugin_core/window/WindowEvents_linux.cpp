// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WindowEvents.h"

#include "X11ActiveWindow.h"

#include <juce_events/native/juce_EventLoopInternal_linux.h>

#include <sys/socket.h>
#include <utility>

namespace mk::pluginCore
{
namespace
{
/** Whether the descriptor is a connection to another process, as that to the X server is. JUCE's own message queue is
    a pair of sockets without names. */
[[nodiscard]] bool isConnection (int descriptor) noexcept
{
    sockaddr_storage peer {};
    socklen_t length = sizeof (peer);
    return getpeername (descriptor, reinterpret_cast<sockaddr*> (&peer), &length) == 0
           && length > sizeof (peer.ss_family);
}
} // namespace

class WindowEvents::Pimpl
{
public:
    explicit Pimpl (std::function<void()> onNewsToUse)
        : onNews (std::move (onNewsToUse)), descriptor (windows->getDescriptor())
    {
        // JUCE has the host's run loop watch the socket.
        if (descriptor >= 0)
            juce::LinuxEventLoop::registerFdCallback (descriptor, [this] (int) { socketIsReady(); });
    }

    ~Pimpl() { stopListening(); }

    [[nodiscard]] std::optional<std::uint32_t> getNumChanges() const
    {
        const auto numChanges = windows->getNumChanges();
        return windows->getDescriptor() >= 0 ? std::optional (numChanges) : std::nullopt;
    }

private:
    void socketIsReady()
    {
        // After the server has closed the connection, the socket would always be ready.
        if (! getNumChanges().has_value())
            stopListening();

        onNews();
    }

    void stopListening()
    {
        if (const auto registered = std::exchange (descriptor, -1); registered >= 0)
            juce::LinuxEventLoop::unregisterFdCallback (registered);
    }

    const juce::SharedResourcePointer<X11ActiveWindow> windows;
    const std::function<void()> onNews;
    int descriptor;
};

WindowEvents::WindowEvents (std::function<void()> onNews) : pimpl (std::make_unique<Pimpl> (std::move (onNews))) {}

WindowEvents::~WindowEvents() = default;

std::optional<std::uint32_t> WindowEvents::getNumChanges() const { return pimpl->getNumChanges(); }

void WindowEvents::handleQueuedEvents()
{
    // What the message loop calls for a descriptor that is ready; it handles everything that has been read before.
    for (const auto descriptor : juce::LinuxEventLoopInternal::getRegisteredFds())
        if (isConnection (descriptor))
            juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (descriptor);
}

} // namespace mk::pluginCore
