// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureFile.h"

#include "plugin_core/files/FileReplacement.h"

namespace mk::orlo::pictureFile
{

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
    juce::MemoryOutputStream png;

    if (! image.isValid() || ! juce::PNGImageFormat().writeImageToStream (image, png))
        return false;

    // Replacing a link would leave the picture that it points to unchanged.
    const auto target = file.isSymbolicLink() ? file.getLinkedTarget() : file;

    // Replacing a write-protected file needs only write access to its folder, so the file itself is checked here.
    return target.hasWriteAccess() && pluginCore::replaceFileContent (target, png.getData(), png.getDataSize());
}

} // namespace mk::orlo::pictureFile
