// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Crosshair.h"
#include "PicturePainter.h"

#include "orlo/explore/Explorer.h"
#include "plugin_core/attachments/ParameterAttachment.h"
#include "plugin_core/window/ComponentVisibilityObserver.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <array>
#include <functional>

namespace mk::orlo
{

class AudioPluginAudioProcessor;
class FFTProcessor;
class SpectrogramImageBuilder;

/** Shows the picture and drives the whole display: each refresh of the screen is a tick for the image
    builder, and analysis runs only while the component is visible. [message thread] */
class SpectrogramComponent final : public juce::Component, private Explorer::Listener
{
public:
    /** All three must outlive the component. */
    SpectrogramComponent (AudioPluginAudioProcessor& processor,
                          FFTProcessor& fftProcessor,
                          SpectrogramImageBuilder& imageBuilder);
    ~SpectrogramComponent() override;

    //==============================================================================
    /** The float is the frequency in hertz under the cursor. */
    std::function<void (const juce::MouseEvent&, float)> onMouseMoved;

    /** Called on mouse down and on drag. Without it there is no crosshair. */
    std::function<void (const juce::MouseEvent&, float)> onMouseHeld;

    std::function<void (const juce::MouseEvent&)> onMouseReleased, onMouseEntered, onMouseExited;

    /** Called when a key or a screen reader requests the menu. */
    std::function<void()> onMenuRequested;

    /** Gets a key before the component does; returns whether it has done something. */
    std::function<bool (const juce::KeyPress&)> onKeyPressed;

    /** Called at each tick that is not ignored, before anything new is painted. */
    std::function<void()> onTick;

    /** Gets the new rate in hertz, after the component has applied it. */
    std::function<void (double)> onSampleRateChanged;

    //==============================================================================
    /** The picture gets two pixels for each of the component's, in both directions. */
    void setDoubleResolution (bool shouldBeDouble);
    [[nodiscard]] bool isDoubleResolution() const noexcept { return doubleResolution; }

    /** Works out the hop from the parameters and the sample rate and passes it on. */
    void recomputeHop();

    /** One refresh of the display, at the given time in seconds. Refreshes less than 15 ms after the last one that was
        not ignored are ignored. Repaints only the columns that have changed, and wakes the image builder only if
        frames wait for it. */
    void tick (double now);

    /** The frequency in hertz at a y coordinate of the component, 0 at the top. */
    [[nodiscard]] float getFrequencyAt (float y) const;

    [[nodiscard]] SpectrogramImageBuilder& getImageBuilder() noexcept { return imageBuilder; }

    /** While it explores, its picture takes the place of the frozen one, and nothing is asked of the image builder. */
    [[nodiscard]] Explorer& getExplorer() noexcept { return explorer; }

    /** Moves the crosshair to another place than that of the mouse, until the mouse moves. */
    void moveCrosshair (juce::Point<float> place);

    [[nodiscard]] bool isCrosshairVisible() const noexcept { return crosshairVisible; }

    //==============================================================================
    void paint (juce::Graphics&) override;
    void resized() override;
    void mouseMove (const juce::MouseEvent&) override;
    void mouseEnter (const juce::MouseEvent&) override;
    void mouseExit (const juce::MouseEvent&) override;
    void mouseDown (const juce::MouseEvent&) override;
    void mouseDrag (const juce::MouseEvent&) override;
    void mouseUp (const juce::MouseEvent&) override;
    bool keyPressed (const juce::KeyPress&) override;
    bool keyStateChanged (bool isKeyDown) override;

private:
    using MouseCallback = std::function<void (const juce::MouseEvent&, float)>;

    void exploringChanged() override;
    void exploredRangeChanged() override { repaint(); }
    void exploredPictureChanged() override { repaint(); }

    void onVisibilityChanged (bool isVisible);
    void repaintCrosshair();
    void requestImageSize();
    void sampleRateChanged (double rate);
    void storeCursor (const juce::MouseEvent&);
    [[nodiscard]] Crosshair getCrosshair() const noexcept;
    void callWithFrequency (const MouseCallback& callback, const juce::MouseEvent& event);
    void toggleFreeze();
    bool requestMenu();
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

    AudioPluginAudioProcessor& processor;
    FFTProcessor& fftProcessor;
    SpectrogramImageBuilder& imageBuilder;

    PicturePainter painter;
    Explorer explorer;
    bool crosshairVisible = false;
    float cursorX = 0.0f, cursorY = 0.0f;

    bool doubleResolution = false;
    int samplesPerColumn = 0;
    float secondsPerColumn = 0.0f;
    int hopSize = 0;

    juce::RangedAudioParameter &modeParameter, &fftSizeParameter, &freezeParameter, &speedParameter;
    pluginCore::ParameterAttachment modeAttachment, fftSizeAttachment, freezeAttachment, speedAttachment;

    const juce::SharedResourcePointer<pluginCore::AttachmentPoller> attachmentPoller;

    juce::VBlankAttachment vblank; // empty while hidden
    double lastTickTime = 0.0;     // seconds

    std::unique_ptr<pluginCore::GuiUtils::ComponentVisibilityObserver> visibilityObserver;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SpectrogramComponent)
};

} // namespace mk::orlo
