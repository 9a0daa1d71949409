// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::pluginCore
{

/** The content of a file from a place that users can write to, so it may be of any kind. Reading a pipe could
    block forever, and a device may have no end, so both give nothing, as do files larger than maxBytes and files
    that cannot be read. Symbolic links are followed. Any thread. */
[[nodiscard]] std::optional<juce::MemoryBlock> readRegularFile (const juce::File& file, size_t maxBytes);

} // namespace mk::pluginCore
