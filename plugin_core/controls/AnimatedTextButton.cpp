// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AnimatedTextButton.h"

#include "plugin_core/style/MouseFade.h"

namespace mk::pluginCore
{

AnimatedTextButton::AnimatedTextButton (const juce::String& buttonText) : AnimatedComponent (buttonText)
{
    getMouseAnimator().setDuration (State::entered, mouseFade::enterMs);
    getMouseAnimator().setDuration (State::left, mouseFade::leaveMs);
}

void AnimatedTextButton::clicked() { getMouseAnimator().click(); }

} // namespace mk::pluginCore
