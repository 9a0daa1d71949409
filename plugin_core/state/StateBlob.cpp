// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StateBlob.h"

#include "plugin_core/files/UntrustedXml.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{
namespace
{
constexpr juce::uint32 magicWord = 0x21324356;
constexpr int headerSize = 8;
} // namespace

juce::MemoryBlock writeStateBlob (const juce::XmlElement& xml)
{
    juce::MemoryBlock blob;
    juce::AudioProcessor::copyXmlToBinary (xml, blob);
    return blob;
}

std::unique_ptr<juce::XmlElement> readStateBlob (const void* data, int numBytes)
{
    if (data == nullptr || numBytes <= headerSize || juce::ByteOrder::littleEndianInt (data) != magicWord)
        return nullptr;

    const auto* const text = static_cast<const char*> (data) + headerSize;
    const auto length = int (juce::ByteOrder::littleEndianInt (text - headerSize / 2));

    if (length < 1)
        return nullptr;

    return parseUntrustedXml (text, size_t (juce::jmin (length, numBytes - headerSize)));
}

} // namespace mk::pluginCore
