// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ComponentMouseAnimator.h"

namespace mk::pluginCore
{

/** A widget whose hover and press the look and feel fades in and out. [message thread] */
template <typename Base>
class AnimatedComponent : public Base, public GenericComponentAnimator
{
public:
    using Base::Base;

    [[nodiscard]] Times getMouseAnimationTimes() const noexcept override { return mouseAnimator.getTimes(); }
    [[nodiscard]] ComponentMouseAnimator& getMouseAnimator() noexcept { return mouseAnimator; }

private:
    ComponentMouseAnimator mouseAnimator { *this };
};

} // namespace mk::pluginCore
