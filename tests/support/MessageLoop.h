// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <functional>

namespace mk::orlo::test
{

/** Runs the message loop until the condition holds. False if it does not within the time. */
[[nodiscard]] bool pumpUntil (const std::function<bool()>& condition, double timeoutSeconds = 10.0);

/** Runs the message loop until everything posted so far has been delivered. */
void pumpPending();

} // namespace mk::orlo::test
