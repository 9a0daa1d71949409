// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::orlo
{

/** A field on the picture to type a concert pitch in. Return accepts it, if it is one; Escape and a click elsewhere
    close the field. [message thread] */
class ConcertPitchEntry final : public juce::Component
{
public:
    ConcertPitchEntry();

    /** Gets what the user has typed, in hertz. */
    std::function<void (double)> onEntered;

    /** Shows the field in the middle of the parent, with the pitch selected and the keyboard focus. */
    void open (double currentPitch);

    [[nodiscard]] juce::TextEditor& getField() noexcept { return field; }

    void paint (juce::Graphics&) override;
    void resized() override;

private:
    void accept();
    void close();

    juce::Label label;
    juce::TextEditor field;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ConcertPitchEntry)
};

} // namespace mk::orlo
