// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureClipboard.h"

#include <windows.h>

#include <cstring>

namespace mk::orlo::pictureClipboard
{
namespace
{
/** A bitmap as the clipboard wants it: a header, and rows of 32 bits from the bottom up. Null without memory. */
[[nodiscard]] HGLOBAL makeBitmap (const juce::Image& picture)
{
    const auto width = picture.getWidth();
    const auto height = picture.getHeight();
    const auto rowSize = size_t (width) * 4;
    const auto memory = GlobalAlloc (GMEM_MOVEABLE, sizeof (BITMAPINFOHEADER) + rowSize * size_t (height));

    if (memory == nullptr)
        return nullptr;

    auto* const bytes = static_cast<juce::uint8*> (GlobalLock (memory));

    if (bytes == nullptr)
    {
        GlobalFree (memory);
        return nullptr;
    }

    BITMAPINFOHEADER header {};
    header.biSize = sizeof (header);
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    std::memcpy (bytes, &header, sizeof (header));

    const auto image = juce::SoftwareImageType().convert (picture).convertedToFormat (juce::Image::ARGB);
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readOnly);

    for (int y = 0; y < height; ++y)
        std::memcpy (bytes + sizeof (header) + rowSize * size_t (height - 1 - y), pixels.getLinePointer (y), rowSize);

    GlobalUnlock (memory);
    return memory;
}
} // namespace

bool isAvailable() noexcept { return true; }

bool copy (const juce::Image& picture)
{
    if (! picture.isValid() || OpenClipboard (nullptr) == 0)
        return false;

    const auto bitmap = makeBitmap (picture);
    const auto isCopied = bitmap != nullptr && EmptyClipboard() != 0 && SetClipboardData (CF_DIB, bitmap) != nullptr;

    // The clipboard owns what it has taken.
    if (! isCopied && bitmap != nullptr)
        GlobalFree (bitmap);

    CloseClipboard();
    return isCopied;
}

} // namespace mk::orlo::pictureClipboard
