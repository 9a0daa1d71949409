// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/OpaqueImage.h"

#include <gtest/gtest.h>

#include <functional>

namespace mk::orlo::test
{
namespace
{

class OpaqueImageTest : public testing::Test
{
protected:
    OpaqueImageTest()
    {
        juce::Random random (2);

        for (int y = 0; y < image.getHeight(); ++y)
            for (int x = 0; x < image.getWidth(); ++x)
                image.setPixelAt (x, y, juce::Colour (0xff000000u | juce::uint32 (random.nextInt (0x1000000))));
    }

    /** Draws with JUCE and with the function under test onto the same background, with the same preparations. */
    void expectTheSame (const std::function<void (juce::Graphics&)>& prepare,
                        const juce::AffineTransform& transform,
                        juce::Image::PixelFormat targetFormat = juce::Image::ARGB)
    {
        const auto draw = [&] (const std::function<void (juce::Graphics&)>& action)
        {
            juce::Image target (targetFormat, 60, 40, true, juce::SoftwareImageType());
            target.clear (target.getBounds(), juce::Colour (0x80402010));
            juce::Graphics g (target);
            g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
            prepare (g);
            action (g);
            return target;
        };

        const auto wanted = draw ([&] (juce::Graphics& g) { g.drawImageTransformed (image, transform); });
        const auto drawn = draw ([&] (juce::Graphics& g) { drawOpaqueImage (g, image, transform); });

        for (int y = 0; y < wanted.getHeight(); ++y)
            for (int x = 0; x < wanted.getWidth(); ++x)
                ASSERT_EQ (drawn.getPixelAt (x, y), wanted.getPixelAt (x, y)) << x << ", " << y;
    }

    juce::Image image { juce::Image::ARGB, 30, 20, true, juce::SoftwareImageType() };
};

TEST_F (OpaqueImageTest, LooksAsJuceDrawsItInsideAndBeyondTheEdges)
{
    for (const auto x : { -40, -7, 0, 5, 45, 70 })
        for (const auto y : { -30, -3, 0, 35, 50 })
            expectTheSame ([] (juce::Graphics&) {}, juce::AffineTransform::translation (float (x), float (y)));
}

TEST_F (OpaqueImageTest, LooksAsJuceDrawsItInEveryKindOfClipRegion)
{
    const auto transform = juce::AffineTransform::translation (4.0f, 6.0f);
    expectTheSame ([] (juce::Graphics& g) { g.reduceClipRegion (8, 7, 11, 30); }, transform);
    expectTheSame ([] (juce::Graphics& g) { g.reduceClipRegion (58, 38, 2, 2); }, transform);
    expectTheSame ([] (juce::Graphics& g) { g.excludeClipRegion ({ 10, 10, 7, 7 }); }, transform);
    expectTheSame (
        [] (juce::Graphics& g)
        {
            juce::Path circle;
            circle.addEllipse (5.0f, 8.0f, 20.0f, 15.0f);
            g.reduceClipRegion (circle);
        },
        transform);
}

TEST_F (OpaqueImageTest, LooksAsJuceDrawsItOnScaledAndMovedContexts)
{
    for (const auto scale : { 0.5f, 1.25f, 1.5f, 2.0f })
    {
        const auto prepare = [scale] (juce::Graphics& g)
        {
            g.addTransform (juce::AffineTransform::scale (scale));
            g.setOrigin (3, 2);
        };
        expectTheSame (prepare, {});
        expectTheSame (prepare, juce::AffineTransform::scale (1.0f / scale));
        expectTheSame (prepare, juce::AffineTransform::translation (5.0f, 0.0f).scaled (1.0f / scale));
    }
}

TEST_F (OpaqueImageTest, LooksAsJuceDrawsItTransparentlyAndInOtherFormats)
{
    expectTheSame ([] (juce::Graphics& g) { g.setOpacity (0.5f); }, {});
    expectTheSame ([] (juce::Graphics& g) { g.beginTransparencyLayer (0.5f); }, {});
    expectTheSame ([] (juce::Graphics&) {}, {}, juce::Image::RGB);
    image = image.convertedToFormat (juce::Image::RGB);
    expectTheSame ([] (juce::Graphics&) {}, {}, juce::Image::RGB);
    expectTheSame ([] (juce::Graphics&) {}, {});
}

} // namespace
} // namespace mk::orlo::test
