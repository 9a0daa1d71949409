// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <ostream>

namespace mk::orlo::render
{

/** A line that shows the progress of the work, rewritten in place. */
class ProgressBar
{
public:
    /** @param isTerminal  whether the output is a terminal; if not, nothing is written */
    ProgressBar (std::ostream& output, bool isTerminal) noexcept : stream (output), enabled (isTerminal) {}

    /** Clears the line. */
    ~ProgressBar();

    /** Shows the share that is done, 0 .. 1. Writes only if the line has changed. */
    void show (double done);

    /** The line's text: a bar 40 characters wide and whole percents. */
    [[nodiscard]] static juce::String getText (int percent);

private:
    std::ostream& stream;
    const bool enabled;
    int shownPercent = -1;

    JUCE_DECLARE_NON_COPYABLE (ProgressBar)
};

} // namespace mk::orlo::render
