// SPDX-License-Identifier: AGPL-3.0-or-later
// Compares what a window shows that paints only what has changed with all of it painted anew.
#include "ContainerInFakeWindow.h"
#include "tests/support/Sanitizers.h"

#include <cmath>
#include <cstdlib>
#include <ostream>

namespace mk::orlo::test
{
namespace
{

constexpr int numTurns = hasThreadSanitizer ? 30 : 150;
constexpr int numSeeds = slowdown > 1 ? 1 : 3;

struct Scene
{
    float scale = 1.0f;
    int seed = 0;
};

std::ostream& operator<< (std::ostream& stream, const Scene& scene)
{
    return stream << "scale " << scene.scale << ", seed " << scene.seed;
}

class RepaintedPictureTest : public ContainerInFakeWindow, public testing::WithParamInterface<Scene>
{
protected:
    [[nodiscard]] juce::Rectangle<int> toPixels (juce::Rectangle<int> area) const
    {
        return (area.toDouble() * double (GetParam().scale)).getSmallestIntegerContainer();
    }

    /** Paints the areas as JUCE's windows on Linux do. */
    void paint (juce::Image& image, const juce::RectangleList<int>& areas)
    {
        juce::RectangleList<int> clip;

        for (const auto& area : areas)
            clip.add (toPixels (area));

        for (const auto& area : clip)
            image.clear (area);

        juce::Graphics g (image);
        g.reduceClipRegion (clip);
        g.addTransform (juce::AffineTransform::scale (GetParam().scale));
        window.paintEntireComponent (g, true);
    }

    [[nodiscard]] juce::Image makeScreen() const
    {
        const auto pixels = toPixels (window.getLocalBounds());
        return { juce::Image::ARGB, pixels.getWidth(), pixels.getHeight(), true, juce::SoftwareImageType() };
    }

    void expectEqual (const juce::Image& screen, const juce::Image& anew)
    {
        // JUCE follows a curve in steps from where the painted area begins, so a round corner of the readout is not
        // exactly the same when only a part of it is painted. What lies between two pixels may be rounded differently.
        constexpr int rounding = 1, corner = 40;
        const auto tag =
            container.getReadout().isVisible()
                ? toPixels (window.getLocalArea (&container.getReadout(), container.getReadout().getLocalBounds()))
                : juce::Rectangle<int> {};
        const juce::Image::BitmapData shown (screen, juce::Image::BitmapData::readOnly);
        const juce::Image::BitmapData wanted (anew, juce::Image::BitmapData::readOnly);

        for (int y = 0; y < shown.height; ++y)
            for (int x = 0; x < shown.width; ++x)
            {
                const auto colour = shown.getPixelColour (x, y), other = wanted.getPixelColour (x, y);
                const auto difference = juce::jmax (std::abs (colour.getRed() - other.getRed()),
                                                    std::abs (colour.getGreen() - other.getGreen()),
                                                    std::abs (colour.getBlue() - other.getBlue()),
                                                    std::abs (colour.getAlpha() - other.getAlpha()));
                ASSERT_LE (difference, tag.contains (x, y) ? corner : rounding)
                    << x << ", " << y << ": " << colour.toString() << " instead of " << other.toString() << ", readout "
                    << tag.toString();
            }
    }

    void changeSomething()
    {
        const auto pick = [this] (float number) { return std::floor (random.nextFloat() * number); };

        switch (random.nextInt (24))
        {
            case 0: set (Params::id::drawMode, pick (2.0f)); break;
            case 1: view.setDoubleResolution (random.nextBool()); break;
            case 2: resize(); break;
            case 3: set (Params::id::ruler, pick (2.0f)); break;
            case 4: set (Params::id::keyboard, pick (2.0f)); break;
            case 5: builder.setColourMap (random.nextInt (46)); break;
            case 6: set (Params::id::floor, -100.0f + pick (50.0f)); break;
            case 7: set (Params::id::minFreq, pick (20.0f)); break;
            case 8: container.getHelpLine().setDefaultText (random.nextBool() ? "A line of help" : ""); break;
            case 9: mouse (&SpectrogramComponent::mouseDown, pickPosition()); break;
            case 10:
            case 11:
            case 12: mouse (&SpectrogramComponent::mouseDrag, pickPosition()); break;
            case 13: mouse (&SpectrogramComponent::mouseUp, pickPosition()); break;
            case 14: mouse (&SpectrogramComponent::mouseMove, pickPosition()); break;
            case 15: loudness = pick (2.0f); break;
            default: break;
        }

        play (random.nextInt (6) == 0 ? random.nextInt (45) : random.nextInt (6), loudness);
        tick();
        pumpPending();
    }

    void resize()
    {
        // Also to twice or half the width, where columns are doubled or joined.
        const auto width = random.nextBool() ? 100 + random.nextInt (250) : random.nextBool() ? 320 : 160;
        window.setSize (width, 60 + random.nextInt (130));
        container.setBounds (window.getLocalBounds().withTrimmedLeft (random.nextInt (4)));
    }

    [[nodiscard]] juce::Point<float> pickPosition()
    {
        return { random.nextFloat() * float (view.getWidth() + 40) - 20.0f,
                 random.nextFloat() * float (view.getHeight() + 40) - 20.0f };
    }

    float loudness = 1.0f;
};

TEST_P (RepaintedPictureTest, EqualsOnePaintedAnew)
{
    random.setSeed (GetParam().seed);
    auto screen = makeScreen();
    static_cast<void> (recorder.take());
    paint (screen, window.getLocalBounds());

    for (int turn = 0; turn < numTurns; ++turn)
    {
        changeSomething();

        // Some refreshes of the display are missed.
        if (random.nextInt (5) == 0)
            continue;

        auto areas = recorder.take();

        if (const auto pixels = toPixels (window.getLocalBounds()); screen.getBounds() != pixels)
        {
            screen = makeScreen();
            areas = window.getLocalBounds();
        }

        paint (screen, areas);
        auto anew = makeScreen();
        paint (anew, window.getLocalBounds());
        expectEqual (screen, anew);

        if (HasFailure())
            FAIL() << "at turn " << turn;
    }
}

[[nodiscard]] std::vector<Scene> makeScenes()
{
    std::vector<Scene> scenes;

    for (const auto scale : { 1.0f, 1.25f, 1.5f, 2.0f })
        for (int seed = 1; seed <= numSeeds; ++seed)
            scenes.push_back ({ scale, seed });

    return scenes;
}

INSTANTIATE_TEST_SUITE_P (Scales, RepaintedPictureTest, testing::ValuesIn (makeScenes()));

} // namespace
} // namespace mk::orlo::test
