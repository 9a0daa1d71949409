// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <stdexcept>

namespace mk::orlo::host
{

/** Something that the user has to hear about, in one line. Ends the program. */
struct HostError : std::runtime_error
{
    explicit HostError (const juce::String& message) : std::runtime_error (message.toStdString()) {}
};

} // namespace mk::orlo::host
