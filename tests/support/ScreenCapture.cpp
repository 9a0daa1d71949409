// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ScreenCapture.h"

#if JUCE_LINUX

    #include <xcb/xcb.h>

    #include <cstdlib>

namespace mk::orlo::test
{
namespace
{
template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype (&std::free)>;
} // namespace

juce::Image captureScreen (juce::Rectangle<int> area)
{
    const std::unique_ptr<xcb_connection_t, decltype (&xcb_disconnect)> connection (xcb_connect (nullptr, nullptr),
                                                                                    &xcb_disconnect);

    if (xcb_connection_has_error (connection.get()) != 0)
        return {};

    const auto root = xcb_setup_roots_iterator (xcb_get_setup (connection.get())).data->root;
    const auto request = xcb_get_image (connection.get(),
                                        XCB_IMAGE_FORMAT_Z_PIXMAP,
                                        root,
                                        std::int16_t (area.getX()),
                                        std::int16_t (area.getY()),
                                        std::uint16_t (area.getWidth()),
                                        std::uint16_t (area.getHeight()),
                                        ~0u);
    const Owned<xcb_get_image_reply_t> reply (xcb_get_image_reply (connection.get(), request, nullptr), &std::free);

    if (reply == nullptr)
        return {};

    const auto* const pixels = xcb_get_image_data (reply.get());
    juce::Image image (juce::Image::RGB, area.getWidth(), area.getHeight(), true, juce::SoftwareImageType());

    // Four bytes a pixel: blue, green, red, nothing.
    for (int y = 0; y < area.getHeight(); ++y)
    {
        for (int x = 0; x < area.getWidth(); ++x)
        {
            const auto* const pixel = pixels + 4 * (y * area.getWidth() + x);
            image.setPixelAt (x, y, juce::Colour (pixel[2], pixel[1], pixel[0]));
        }
    }

    return image;
}

} // namespace mk::orlo::test

#endif
