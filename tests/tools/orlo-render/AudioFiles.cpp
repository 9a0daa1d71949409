// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioFiles.h"

#include <cstdlib>
#include <iostream>

namespace mk::orlo::test
{
namespace
{
void require (bool succeeded, const juce::File& file)
{
    if (! succeeded)
    {
        std::cerr << "Cannot write " << file.getFullPathName() << std::endl;
        std::abort();
    }
}
} // namespace

void writeAudioFile (const juce::File& file, const Channels& channels, double sampleRate, int bitsPerSample)
{
    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    auto* const format = formats.findFormatForFileExtension (file.getFileExtension());
    auto stream = file.createOutputStream();
    require (format != nullptr && stream != nullptr, file);

    const auto quality = format->getQualityOptions().size() - 1;
    const std::unique_ptr<juce::AudioFormatWriter> writer (format->createWriterFor (
        stream.get(), sampleRate, unsigned (channels.size()), bitsPerSample, {}, juce::jmax (0, quality)));
    require (writer != nullptr, file);
    stream.release(); // the writer owns it now

    std::vector<const float*> pointers;

    for (const auto& channel : channels)
        pointers.push_back (channel.data());

    if (! channels.front().empty())
        require (writer->writeFromFloatArrays (pointers.data(), int (channels.size()), int (channels.front().size())),
                 file);
}

void truncateFile (const juce::File& file, juce::int64 numBytes)
{
    juce::FileOutputStream stream (file);
    require (stream.openedOk() && stream.setPosition (numBytes) && stream.truncate().wasOk(), file);
}

} // namespace mk::orlo::test
