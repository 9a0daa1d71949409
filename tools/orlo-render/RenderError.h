// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <stdexcept>

namespace mk::orlo::render
{

/** Whatever ends the program early: the one line that the user gets to read, and the exit code. */
class RenderError final : public std::runtime_error
{
public:
    enum Code
    {
        failure = 1, /**< The files or the machine did not play along. */
        usage = 2,   /**< The command line makes no sense. */
        interrupted = 130
    };

    explicit RenderError (const juce::String& line, Code exitCode = failure)
        : std::runtime_error (line.toStdString()), code (exitCode)
    {
    }

    [[nodiscard]] int getExitCode() const noexcept { return code; }

private:
    Code code;
};

} // namespace mk::orlo::render
