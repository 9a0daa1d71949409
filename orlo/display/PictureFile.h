// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

/** Pictures of the spectrogram as files. */
namespace mk::orlo::pictureFile
{

/** Where the dialog of an export starts: at the last picture if its setting is an absolute path, else in the
    user's folder of pictures. */
[[nodiscard]] juce::File chooseStart (const juce::String& lastExportFile);

/** The file with the extension that a picture has. */
[[nodiscard]] juce::File withPngExtension (const juce::File& file);

/** Writes the image in the place of whatever the file held, which stays untouched until all of the picture is on the
    disk; folders that lead there are made. False, with the file as it was, if the picture cannot be written or the
    file is write-protected. Encodes and blocks on the disk: for any thread that may wait. */
bool write (const juce::Image& image, const juce::File& file);

} // namespace mk::orlo::pictureFile
