// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::pluginCore
{

/** The content of a file that may be anything, since it lies where a user can put what he likes. A pipe would
    let the reader wait for ever, and a device may have no end: of those, and of files larger than maxBytes,
    nothing is read. A link counts as what it leads to. Nothing too if the file cannot be read. Any thread. */
[[nodiscard]] std::optional<juce::MemoryBlock> readRegularFile (const juce::File& file, size_t maxBytes);

} // namespace mk::pluginCore
