// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace mk::pluginCore
{

/** A mix-in that a look and feel casts a control to (dynamic_cast) to read the state of its mouse
    animation. [message thread] */
class GenericComponentAnimator
{
public:
    /** The last event. Idle: there was none, or every fade has ended since. */
    enum class State
    {
        idle,
        entered,
        left,
        pressed,
        released,
        clicked
    };

    static constexpr std::size_t numStates = 6;

    /** All in milliseconds and indexed by State: the time since the last event of each kind, and how long
        its fade takes. */
    struct Times
    {
        State state = State::idle;
        std::array<int, numStates> elapsed {};
        std::array<int, numStates> durations {};
    };

    virtual ~GenericComponentAnimator() = default;

    [[nodiscard]] virtual Times getMouseAnimationTimes() const noexcept = 0;
};

} // namespace mk::pluginCore
