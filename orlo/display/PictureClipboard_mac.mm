// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureClipboard.h"

#import <AppKit/AppKit.h>

namespace mk::orlo::pictureClipboard
{

bool isAvailable() noexcept { return true; }

bool copy (const juce::Image& picture)
{
    juce::MemoryOutputStream png;

    if (! picture.isValid() || ! juce::PNGImageFormat().writeImageToStream (picture, png))
        return false;

    @autoreleasepool
    {
        NSData* const data = [NSData dataWithBytes:png.getData() length:png.getDataSize()];
        NSPasteboard* const pasteboard = [NSPasteboard generalPasteboard];
        [pasteboard clearContents];
        return [pasteboard setData:data forType:NSPasteboardTypePNG] == YES;
    }
}

} // namespace mk::orlo::pictureClipboard
