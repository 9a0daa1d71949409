// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WindowEvents.h"

namespace mk::pluginCore
{

class WindowEvents::Pimpl
{
};

// On macOS the queries are cheap, so polling is enough and no events are needed.
WindowEvents::WindowEvents (std::function<void()>) {}

WindowEvents::~WindowEvents() = default;

std::optional<std::uint32_t> WindowEvents::getNumChanges() const { return std::nullopt; }

void WindowEvents::handleQueuedEvents() {}

} // namespace mk::pluginCore
