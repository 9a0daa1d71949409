// SPDX-License-Identifier: AGPL-3.0-or-later
#include "OpaqueImage.h"

#include <cmath>
#include <cstring>
#include <optional>

namespace mk::orlo
{
namespace
{
using Renderer = juce::LowLevelGraphicsSoftwareRenderer;
using State = juce::RenderingHelpers::SoftwareRendererSavedState;

/** JUCE has no public way to the target of a context. */
struct RendererAccess : Renderer
{
    /** The target image, the clip region and the transform. */
    [[nodiscard]] static State& getState (Renderer& renderer) { return *(renderer.*(&RendererAccess::stack)); }
};

/** Where the image's left top corner falls, in pixels of the target, rounded as JUCE does. Nothing if the transform
    is more than a translation. */
[[nodiscard]] std::optional<juce::Point<int>> findPosition (const juce::AffineTransform& transform)
{
    constexpr auto tolerance = 0.002f;

    if (std::abs (transform.mat01) >= tolerance || std::abs (transform.mat10) >= tolerance
        || std::abs (transform.mat00 - 1.0f) >= tolerance || std::abs (transform.mat11 - 1.0f) >= tolerance)
        return std::nullopt;

    const auto round = [] (float position) { return (int (position * 256.0f) + 128) >> 8; };
    return juce::Point { round (transform.getTranslationX()), round (transform.getTranslationY()) };
}

void copyRows (juce::Image::BitmapData& target,
               const juce::Image::BitmapData& source,
               juce::Rectangle<int> area,
               juce::Point<int> sourcePosition)
{
    const auto numBytes = size_t (area.getWidth()) * size_t (source.pixelStride);

    for (int y = area.getY(); y < area.getBottom(); ++y)
        std::memcpy (target.getPixelPointer (area.getX(), y),
                     source.getPixelPointer (area.getX() - sourcePosition.x, y - sourcePosition.y),
                     numBytes);
}

/** False, with nothing drawn, if rows cannot be copied. */
[[nodiscard]] bool copyToTarget (Renderer& renderer, const juce::Image& image, const juce::AffineTransform& transform)
{
    auto& state = RendererAccess::getState (renderer);
    const auto* const region = dynamic_cast<const State::RectangleListRegionType*> (state.clip.get());
    const auto position = findPosition (state.transform.getTransformWith (transform));

    if (region == nullptr || ! position.has_value() || ! state.fillType.colour.isOpaque()
        || state.image.getFormat() != image.getFormat())
        return false;

    const juce::Image::BitmapData source (image, juce::Image::BitmapData::readOnly);
    juce::Image::BitmapData target (state.image, juce::Image::BitmapData::readWrite);

    if (source.pixelFormat != target.pixelFormat || source.pixelStride != target.pixelStride)
        return false;

    const auto covered = (image.getBounds() + *position).getIntersection (state.image.getBounds());

    for (const auto& part : region->clip)
        copyRows (target, source, part.getIntersection (covered), *position);

    return true;
}
} // namespace

void drawOpaqueImage (juce::Graphics& g, const juce::Image& image, const juce::AffineTransform& transform)
{
    auto* const renderer = dynamic_cast<Renderer*> (&g.getInternalContext());

    if (renderer == nullptr || ! copyToTarget (*renderer, image, transform))
        g.drawImageTransformed (image, transform);
}

} // namespace mk::orlo
