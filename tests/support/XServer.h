// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <memory>

namespace mk::orlo::test
{

/** An X server for one test, without a window manager: the test acts as one. Linux only. */
class XServer
{
public:
    /** Starts Xvfb on a free display. */
    XServer();
    ~XServer();

    /** False if there is no Xvfb. */
    [[nodiscard]] bool isRunning() const noexcept { return connection != nullptr; }
    [[nodiscard]] juce::String getDisplayName() const { return displayName; }

    /** A new window, inside the given one or on the desktop, with the process as its owner. */
    [[nodiscard]] std::uint32_t createWindow (std::uint32_t processId, std::uint32_t parent = 0);
    void destroyWindow (std::uint32_t window);
    void setMapped (std::uint32_t window, bool shouldBeMapped);

    /** Sets the active window as a window manager does; 0 for none. */
    void setActiveWindow (std::uint32_t window);

    /** Ends the server; its clients lose their connection. */
    void stop();

    /** A window as a component's peer gives it. */
    [[nodiscard]] static void* toHandle (std::uint32_t window)
    {
        return reinterpret_cast<void*> (std::uintptr_t (window));
    }

private:
    class Connection;

    juce::ChildProcess process;
    juce::String displayName;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE (XServer)
};

} // namespace mk::orlo::test
