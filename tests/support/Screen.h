// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo::test
{

/** The screen that DISPLAY names, for tests that open windows. [message thread] */
class Screen
{
public:
    /** Connects at the first call, which must come before JUCE connects: on a fresh server nobody yet knows
        the names that JUCE asks for. */
    [[nodiscard]] static Screen& getInstance();

    [[nodiscard]] bool isAvailable() const noexcept { return connection != nullptr; }

    /** Moves the real mouse; the windows hear of it as they would from the user. */
    void moveMouseTo (juce::Point<int> position);

private:
    Screen();

    juce::DynamicLibrary library;
    void* connection = nullptr; // open until the program ends, or else the server forgets everything
};

} // namespace mk::orlo::test
