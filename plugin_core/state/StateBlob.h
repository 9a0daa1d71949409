// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** The blob that a host stores in a session: a magic word, a length and a document as null-terminated
    UTF-8 text. */
[[nodiscard]] juce::MemoryBlock writeStateBlob (const juce::XmlElement& xml);

/** The document in a blob; null if the blob is invalid. A length beyond the end of the data is clamped to
    it. Any thread; any bytes. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> readStateBlob (const void* data, int numBytes);

} // namespace mk::pluginCore
