// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** What a host keeps for a session: a magic word, a length and the UTF-8 text of a document with its
    terminator. */
[[nodiscard]] juce::MemoryBlock writeStateBlob (const juce::XmlElement& xml);

/** The document of a blob; null if the bytes hold none. A length beyond the end of the data is taken as up
    to the end. Any thread; any bytes. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> readStateBlob (const void* data, int numBytes);

} // namespace mk::pluginCore
