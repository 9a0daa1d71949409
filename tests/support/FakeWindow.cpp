// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FakeWindow.h"

namespace mk::orlo::test
{

class FakeWindow::Peer final : public juce::ComponentPeer
{
public:
    using juce::ComponentPeer::ComponentPeer;

    using juce::ComponentPeer::callVBlankListeners;

    juce::Point<float> position;
    int numRepaints = 0;

    void* getNativeHandle() const override { return nullptr; }
    void setVisible (bool) override {}
    void setTitle (const juce::String&) override {}
    void setBounds (const juce::Rectangle<int>& newBounds, bool) override { size = newBounds.withZeroOrigin(); }
    juce::Rectangle<int> getBounds() const override { return size + position.roundToInt(); }
    juce::Point<float> localToGlobal (juce::Point<float> local) override { return local + position; }
    juce::Point<float> globalToLocal (juce::Point<float> global) override { return global - position; }
    using juce::ComponentPeer::globalToLocal;
    using juce::ComponentPeer::localToGlobal;
    void setMinimised (bool) override {}
    bool isMinimised() const override { return false; }
    bool isShowing() const override { return true; }
    void setFullScreen (bool) override {}
    bool isFullScreen() const override { return false; }
    void setIcon (const juce::Image&) override {}
    bool contains (juce::Point<int> local, bool) const override { return size.contains (local); }
    OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }
    juce::BorderSize<int> getFrameSize() const override { return {}; }
    bool setAlwaysOnTop (bool) override { return true; }
    void toFront (bool) override {}
    void toBehind (juce::ComponentPeer*) override {}
    bool isFocused() const override { return false; }
    void grabFocus() override {}
    void repaint (const juce::Rectangle<int>&) override { ++numRepaints; }
    void performAnyPendingRepaintsNow() override {}
    void setAlpha (float) override {}
    juce::StringArray getAvailableRenderingEngines() override { return {}; }
    void textInputRequired (juce::Point<int>, juce::TextInputTarget&) override {}

private:
    juce::Rectangle<int> size;
};

FakeWindow::FakeWindow() { addToDesktop (0); }

FakeWindow::~FakeWindow() { removeFromDesktop(); }

void FakeWindow::moveSilently (juce::Point<float> screenPosition) { getFakePeer().position = screenPosition; }

void FakeWindow::refreshDisplay (double time) { getFakePeer().callVBlankListeners (time); }

int FakeWindow::getNumRepaints() const { return getFakePeer().numRepaints; }

FakeWindow::Peer& FakeWindow::getFakePeer() const { return dynamic_cast<Peer&> (*getPeer()); }

juce::ComponentPeer* FakeWindow::createNewPeer (int styleFlags, void*)
{
    // The component's base class takes ownership.
    return std::make_unique<Peer> (*this, styleFlags).release();
}

} // namespace mk::orlo::test
