// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <array>

namespace mk::orlo::test
{

/** Atoms that programs expect to exist; on a fresh X server a test has to create them first. */
inline constexpr std::array windowAtoms {
    "WM_PROTOCOLS", "WM_DELETE_WINDOW", "WM_TAKE_FOCUS",        "WM_CHANGE_STATE",    "WM_STATE",
    "_NET_WM_PING", "_NET_WM_STATE",    "_NET_WM_STATE_HIDDEN", "_NET_WM_WINDOW_TYPE"
};

} // namespace mk::orlo::test
