// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

/** Pictures of the spectrogram as files. */
namespace mk::orlo::pictureFile
{

/** The file or folder at which the export dialog opens: the last picture if its setting is an absolute path,
    else the user's folder of pictures. */
[[nodiscard]] juce::File chooseStart (const juce::String& lastExportFile);

/** The file with the extension ".png". */
[[nodiscard]] juce::File withPngExtension (const juce::File& file);

/** Replaces the file's content with the image; the old content stays until the whole picture is on the disk.
    Creates missing parent folders. False, with the file unchanged, if the picture cannot be written or the file is
    write-protected. Encodes the image and blocks on the disk: for any thread that may block. */
bool write (const juce::Image& image, const juce::File& file);

} // namespace mk::orlo::pictureFile
