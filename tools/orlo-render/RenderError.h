// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <stdexcept>

namespace mk::orlo::render
{

/** An error that ends the program, with a message of one line for the user and the exit code. */
class RenderError final : public std::runtime_error
{
public:
    enum Code
    {
        failure = 1, /**< Caused by a file or the machine. */
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
