// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WindowEvents.h"

namespace mk::pluginCore
{

class WindowEvents::Pimpl
{
};

// There, asking costs little, and nothing has to be waited for.
WindowEvents::WindowEvents (std::function<void()>) {}

WindowEvents::~WindowEvents() = default;

std::optional<std::uint32_t> WindowEvents::getNumChanges() const { return std::nullopt; }

} // namespace mk::pluginCore
