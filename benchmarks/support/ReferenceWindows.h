// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Windows to compare the editor with. [message thread] */
namespace mk::orlo::bench
{

/** A window that only paints one picture, at most once in the given time. */
class PictureWindow final : public juce::Component
{
public:
    PictureWindow (juce::Rectangle<int> size, juce::Image::PixelFormat format, double shortestSeconds)
        : picture (format, size.getWidth(), size.getHeight(), true, juce::SoftwareImageType()),
          vblank (this,
                  [this, shortestSeconds, last = 0.0] (double now) mutable
                  {
                      if (now - last < shortestSeconds)
                          return;

                      last = now;
                      repaint();
                  })
    {
        setOpaque (true);
        setSize (size.getWidth(), size.getHeight());
        addToDesktop (juce::ComponentPeer::windowIsTemporary);
        setVisible (true);
    }

    void paint (juce::Graphics& g) override { g.drawImageAt (picture, 0, 0); }

private:
    juce::Image picture;
    juce::VBlankAttachment vblank;
};

/** A window that does nothing. */
class IdleWindow final : public juce::Component
{
public:
    explicit IdleWindow (juce::Rectangle<int> size)
    {
        setOpaque (true);
        setSize (size.getWidth(), size.getHeight());
        addToDesktop (juce::ComponentPeer::windowIsTemporary);
        setVisible (true);
    }

    void paint (juce::Graphics& g) override { g.fillAll (juce::Colours::black); }
};

} // namespace mk::orlo::bench
