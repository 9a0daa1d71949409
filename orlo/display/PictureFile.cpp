// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureFile.h"

namespace mk::orlo::pictureFile
{
namespace
{
constexpr size_t bufferSize = 16384;
} // namespace

juce::File chooseStart (const juce::String& lastExportFile)
{
    if (lastExportFile.startsWithChar ('/') || lastExportFile.startsWithChar ('~')
        || (juce::File::getSeparatorChar() == '\\' && juce::File::isAbsolutePath (lastExportFile)))
        return juce::File (lastExportFile);

    return juce::File::getSpecialLocation (juce::File::userPicturesDirectory);
}

juce::File withPngExtension (const juce::File& file)
{
    return file.hasFileExtension ("png") ? file : file.withFileExtension (".png");
}

bool write (const juce::Image& image, const juce::File& file)
{
    if (! image.isValid())
        return false;

    juce::FileOutputStream stream (file, bufferSize);

    // A stream goes on at the end of what is there.
    if (! stream.openedOk() || ! stream.setPosition (0) || stream.truncate().failed())
        return false;

    const auto isWritten = juce::PNGImageFormat().writeImageToStream (image, stream);
    stream.flush();
    return isWritten && stream.getStatus().wasOk();
}

} // namespace mk::orlo::pictureFile
