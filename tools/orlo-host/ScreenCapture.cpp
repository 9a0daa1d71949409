// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ScreenCapture.h"

#include "HostError.h"
#include "PluginState.h"

#if JUCE_LINUX || JUCE_BSD
    #include <X11/Xlib.h>
    #include <X11/Xutil.h>
#endif

namespace mk::orlo::host
{

#if JUCE_LINUX || JUCE_BSD
namespace
{
/** A connection of our own to the display. */
struct DisplayCloser
{
    void operator() (::Display* display) const { XCloseDisplay (display); }
};

struct ImageDestroyer
{
    void operator() (::XImage* image) const { XDestroyImage (image); }
};

/** While it lives, a failed X request returns no result; by default an X error ends the program. */
struct ScopedXErrorsIgnored
{
    ScopedXErrorsIgnored() : previous (XSetErrorHandler ([] (::Display*, ::XErrorEvent*) { return 0; })) {}
    ~ScopedXErrorsIgnored() { XSetErrorHandler (previous); }

    ::XErrorHandler previous;

    JUCE_DECLARE_NON_COPYABLE (ScopedXErrorsIgnored)
};

/** One of the three colours of a pixel, as 8 bits. */
[[nodiscard]] juce::uint8 component8 (unsigned long pixel, unsigned long mask) noexcept
{
    return juce::uint8 (((pixel & mask) * 255) / mask);
}

[[nodiscard]] juce::Image toImage (::XImage& source)
{
    juce::Image image (juce::Image::RGB, source.width, source.height, false);
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::writeOnly);

    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x)
        {
            const auto pixel = XGetPixel (&source, x, y);
            pixels.setPixelColour (x,
                                   y,
                                   juce::Colour (component8 (pixel, source.red_mask),
                                                 component8 (pixel, source.green_mask),
                                                 component8 (pixel, source.blue_mask)));
        }

    return image;
}
} // namespace

juce::Image captureFromScreen (const juce::Component& component)
{
    const auto* const peer = component.getPeer();
    const std::unique_ptr<::Display, DisplayCloser> display (XOpenDisplay (nullptr));

    if (peer == nullptr || display == nullptr)
        throw HostError ("there is no window on a display to take a picture of");

    const auto area = (peer->getAreaCoveredBy (component).toDouble() * peer->getPlatformScaleFactor()).toNearestInt();
    const auto window = ::Window (reinterpret_cast<juce::pointer_sized_uint> (peer->getNativeHandle()));

    // XGetImage includes child windows, so the picture also contains the plug-in's window.
    const ScopedXErrorsIgnored errorsIgnored;
    const std::unique_ptr<::XImage, ImageDestroyer> image (XGetImage (display.get(),
                                                                      window,
                                                                      area.getX(),
                                                                      area.getY(),
                                                                      unsigned (area.getWidth()),
                                                                      unsigned (area.getHeight()),
                                                                      AllPlanes,
                                                                      ZPixmap));

    if (image == nullptr || image->red_mask == 0 || image->green_mask == 0 || image->blue_mask == 0)
        throw HostError ("no picture can be taken of an editor that is not wholly on the screen");

    return toImage (*image);
}
#else
juce::Image captureFromScreen (const juce::Component&)
{
    throw HostError ("pictures of the screen can be taken under X11 only");
}
#endif

void writePng (const juce::Image& image, const juce::File& file)
{
    juce::MemoryOutputStream png;

    if (! juce::PNGImageFormat().writeImageToStream (image, png))
        throw HostError ("cannot make a PNG for " + file.getFullPathName());

    writeWholeFile (file, png.getData(), png.getDataSize());
}

} // namespace mk::orlo::host
