// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LookAndFeel.h"

namespace mk::pluginCore
{

/** The caret of text fields: a bar whose width differs from JUCE's. [message thread] */
class LookAndFeel::MyCaretComponent final : public juce::CaretComponent
{
public:
    MyCaretComponent (juce::Component* keyFocusOwner, int widthInPixels);

    void paint (juce::Graphics& g) override;
    void setCaretPosition (const juce::Rectangle<int>& characterArea) override;

private:
    const int caretWidth;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MyCaretComponent)
};

} // namespace mk::pluginCore
