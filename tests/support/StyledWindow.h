// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::orlo::test
{

/** An empty plug-in window of a given width that draws with a look and feel of its own, off the screen. */
template <typename Style>
class StyledWindow
{
public:
    explicit StyledWindow (int width, int height = 600)
    {
        window.setLookAndFeel (&style);
        window.setSize (width, height);
    }

    ~StyledWindow() { window.setLookAndFeel (nullptr); }

    /** Puts the component into the window. */
    void add (juce::Component& component, juce::Rectangle<int> bounds)
    {
        window.addAndMakeVisible (component);
        component.setBounds (bounds);
    }

    /** Puts the window on the screen, because components can have the keyboard focus only there. */
    void show()
    {
        window.addToDesktop (juce::ComponentPeer::windowIsTemporary);
        window.setVisible (true);
    }

    Style style;

private:
    struct Window final : public juce::AudioProcessorEditor
    {
        explicit Window (juce::AudioProcessor& owner) : juce::AudioProcessorEditor (owner) {}
    };

    juce::AudioProcessorGraph graph;

public:
    Window window { graph };
};

/** What a component and its children paint, on a transparent background. */
[[nodiscard]] inline juce::Image snapshotOf (juce::Component& component, float scale = 1.0f)
{
    const auto width = juce::roundToInt (float (component.getWidth()) * scale);
    const auto height = juce::roundToInt (float (component.getHeight()) * scale);
    juce::Image image (juce::Image::ARGB, width, height, true, juce::SoftwareImageType());
    juce::Graphics g (image);
    g.addTransform (juce::AffineTransform::scale (scale));
    component.paintEntireComponent (g, true);
    return image;
}

/** What a function draws into a transparent image. */
template <typename Draw>
[[nodiscard]] juce::Image drawnImage (int width, int height, const Draw& draw)
{
    juce::Image image (juce::Image::ARGB, width, height, true, juce::SoftwareImageType());
    juce::Graphics g (image);
    draw (g);
    return image;
}

/** The difference of two colours in the channel that differs most; blending may round by one. */
[[nodiscard]] inline int distance (juce::Colour a, juce::Colour b)
{
    const auto apart = [] (juce::uint8 x, juce::uint8 y) { return std::abs (int (x) - int (y)); };
    return std::max ({ apart (a.getAlpha(), b.getAlpha()),
                       apart (a.getRed(), b.getRed()),
                       apart (a.getGreen(), b.getGreen()),
                       apart (a.getBlue(), b.getBlue()) });
}

/** The part of the area that has any paint on it. */
[[nodiscard]] inline juce::Rectangle<int> findInk (const juce::Image& image, juce::Rectangle<int> area)
{
    juce::Rectangle<int> ink;

    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
            if (image.getPixelAt (x, y).getAlpha() > 0)
                ink = ink.isEmpty() ? juce::Rectangle<int> (x, y, 1, 1) : ink.getUnion ({ x, y, 1, 1 });

    return ink;
}

[[nodiscard]] inline juce::Rectangle<int> findInk (const juce::Image& image)
{
    return findInk (image, image.getBounds());
}

} // namespace mk::orlo::test
