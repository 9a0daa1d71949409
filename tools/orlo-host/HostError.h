// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <stdexcept>

namespace mk::orlo::host
{

/** An error that ends the program, with a message of one line for the user. */
struct HostError : std::runtime_error
{
    explicit HostError (const juce::String& message) : std::runtime_error (message.toStdString()) {}
};

} // namespace mk::orlo::host
