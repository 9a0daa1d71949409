// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo
{

/** The bytes that every PNG starts with. */
void writePngSignature (juce::OutputStream& stream);

/** A chunk of a PNG. Collects what is written to it; the destructor writes it out with length and checksum. Failed
    writes are reported by the stream only. */
class PngChunk
{
public:
    /** @param type  four letters. The stream must outlive the chunk. */
    PngChunk (juce::OutputStream& destination, const char* type) : stream (destination)
    {
        content.write (type, typeSize);
    }

    ~PngChunk();

    [[nodiscard]] juce::MemoryOutputStream& get() noexcept { return content; }

private:
    static constexpr size_t typeSize = 4;

    juce::OutputStream& stream;
    juce::MemoryOutputStream content;

    JUCE_DECLARE_NON_COPYABLE (PngChunk)
};

} // namespace mk::orlo
