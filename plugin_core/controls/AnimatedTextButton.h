// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnimatedComponent.h"
#include "ComponentIgnoringRightButton.h"

namespace mk::pluginCore
{

/** A text button that fades on hover and press and reacts only to the left mouse button. [message thread] */
class AnimatedTextButton : public AnimatedComponent<ComponentIgnoringRightButton<juce::TextButton>>
{
public:
    explicit AnimatedTextButton (const juce::String& buttonText);

protected:
    void clicked() override;

private:
    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AnimatedTextButton)
};

} // namespace mk::pluginCore
