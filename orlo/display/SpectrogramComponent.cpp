// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramComponent.h"

#include "MenuKey.h"
#include "orlo/analysis/HopPlan.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"

namespace mk::orlo
{
namespace
{
// More than 60 pictures a second cost processor time and show nothing more.
constexpr double shortestTickSeconds = 0.015;
const juce::Colour crosshairColour { 0xff808080 };
} // namespace

SpectrogramComponent::SpectrogramComponent (AudioPluginAudioProcessor& audioProcessor,
                                            FFTProcessor& worker,
                                            SpectrogramImageBuilder& builder)
    : processor (audioProcessor),
      fftProcessor (worker),
      imageBuilder (builder),
      modeParameter (findParameter (audioProcessor, Params::id::mode)),
      fftSizeParameter (findParameter (audioProcessor, Params::id::fftSize)),
      freezeParameter (findParameter (audioProcessor, Params::id::freeze)),
      speedParameter (findParameter (audioProcessor, Params::id::speed)),
      modeAttachment (modeParameter, [this] (float) { recomputeHop(); }),
      fftSizeAttachment (fftSizeParameter, [this] (float) { recomputeHop(); }),
      freezeAttachment (freezeParameter, [] (float) {}),
      speedAttachment (speedParameter, [this] (float) { recomputeHop(); })
{
    fftProcessor.onSampleRateChanged = [this] (double rate) { sampleRateChanged (rate); };
    fftProcessor.discardPending();
    recomputeHop();

    setMouseCursor (juce::MouseCursor::CrosshairCursor);
    setOpaque (true);

    // Tab has to reach the picture, so that its menu can be opened by a key. If a click took the keyboard focus,
    // the host's space bar would stop working, so clicks leave the focus with the host.
    setWantsKeyboardFocus (true);
    setMouseClickGrabsKeyboardFocus (false);
    setTitle (juce::translate ("Spectrogram"));
    setDescription (juce::translate ("The frequencies of the sound over time"));
    setHelpText (juce::translate ("Press the Menu key or Shift+F10 to open the menu"));

    visibilityObserver = std::make_unique<pluginCore::GuiUtils::ComponentVisibilityObserver> (
        *this, [this] (bool isVisible) { onVisibilityChanged (isVisible); });
}

SpectrogramComponent::~SpectrogramComponent()
{
    visibilityObserver = nullptr;
    processor.setAnalysisSuspended (true);
    imageBuilder.stopThread (1000);
    fftProcessor.onSampleRateChanged = nullptr;
    vblank = {};
}

//==============================================================================
void SpectrogramComponent::onVisibilityChanged (bool isVisible)
{
    if (isVisible)
    {
        vblank = { this, [this] (double now) { tick (now); } };
        imageBuilder.startThread (juce::Thread::Priority::high);
        processor.setAnalysisSuspended (false);
    }
    else
    {
        processor.setAnalysisSuspended (true);
        vblank = {};
        imageBuilder.stopThread (1000);
    }
}

void SpectrogramComponent::tick (double now)
{
    const auto elapsed = now - lastTickTime;

    if (elapsed < shortestTickSeconds || secondsPerColumn <= 0.0f)
        return;

    lastTickTime = now;
    attachmentPoller->deliverNow();
    processor.updatePictureSettings();

    const auto changes = imageBuilder.fetchColumns();
    painter.noteChanges (changes);

    for (const auto& area : findChangedAreas (changes, imageBuilder.getPicture().getWidth(), getLocalBounds()))
        if (! area.isEmpty())
            repaint (area);

    const auto isDue = imageBuilder.isColumnReady();
    processor.getFrameClock().tick (float (elapsed / double (secondsPerColumn)), isDue);

    if (isDue)
        imageBuilder.notify();
}

void SpectrogramComponent::recomputeHop()
{
    const auto label = fftSizeParameter.getCurrentValueAsText().getIntValue();
    const auto enhanced = juce::roundToInt (getCurrentValue (modeParameter)) != 0;
    const auto plan =
        planHop ({ label, fftProcessor.getSampleRate(), getCurrentValue (speedParameter), doubleResolution, enhanced });

    secondsPerColumn = plan.secondsPerColumn;
    samplesPerColumn = plan.samplesPerColumn;
    hopSize = plan.samplesPerFrame;

    if (plan.samplesPerFrame >= 1)
    {
        fftProcessor.setHop (plan.samplesPerFrame);
        imageBuilder.setFramesPerColumn (plan.framesPerColumn);
    }
}

void SpectrogramComponent::sampleRateChanged (double rate)
{
    recomputeHop();

    if (onSampleRateChanged != nullptr)
        onSampleRateChanged (rate);
}

void SpectrogramComponent::setDoubleResolution (bool shouldBeDouble)
{
    if (std::exchange (doubleResolution, shouldBeDouble) == shouldBeDouble)
        return;

    recomputeHop();
    requestImageSize();
    repaint();
}

void SpectrogramComponent::requestImageSize()
{
    if (hopSize >= 1 && samplesPerColumn >= 1 && getWidth() >= 1 && getHeight() >= 1)
        imageBuilder.setRequestedSize (getWidth() << int (doubleResolution), getHeight() << int (doubleResolution));
}

void SpectrogramComponent::resized() { requestImageSize(); }

//==============================================================================
void SpectrogramComponent::paint (juce::Graphics& g)
{
    const auto& picture = imageBuilder.getPicture();

    if (picture.getWidth() < 1)
    {
        g.fillAll (juce::Colours::black);
        return;
    }

    painter.paint (g, picture, imageBuilder.isPictureScrolling(), getLocalBounds());

    if (crosshairVisible)
    {
        const auto lines = getCrosshair();
        g.setColour (crosshairColour);
        g.fillRect (lines.horizontal);
        g.fillRect (lines.vertical);
    }
}

float SpectrogramComponent::getFrequencyAt (float y) const
{
    const auto height = float (getHeight());
    const auto position = height > 0.0f ? 1.0f - juce::jlimit (0.0f, height, y + 0.5f) / height : 0.0f;
    return imageBuilder.getFrequencyScale().frequencyForPosition (position);
}

//==============================================================================
void SpectrogramComponent::storeCursor (const juce::MouseEvent& event)
{
    if (crosshairVisible)
        repaintCrosshair();

    cursorX = juce::jlimit (0.0f, float (getWidth()), event.position.x);
    cursorY = event.position.y;

    if (crosshairVisible)
        repaintCrosshair();
}

Crosshair SpectrogramComponent::getCrosshair() const noexcept
{
    return placeCrosshair ({ cursorX, cursorY }, float (getWidth()), float (getHeight()), doubleResolution);
}

void SpectrogramComponent::repaintCrosshair()
{
    const auto lines = getCrosshair();

    for (const auto& line : { lines.horizontal, lines.vertical })
        repaint (line.getSmallestIntegerContainer().expanded (1));
}

void SpectrogramComponent::callWithFrequency (const MouseCallback& callback, const juce::MouseEvent& event)
{
    if (callback != nullptr)
        callback (event.withNewPosition (juce::Point { cursorX, cursorY }), getFrequencyAt (cursorY));
}

void SpectrogramComponent::mouseMove (const juce::MouseEvent& event)
{
    if (event.mouseWasDraggedSinceMouseDown())
        return;

    storeCursor (event);

    if (! pluginCore::isMenuClick (event.mods))
        callWithFrequency (onMouseMoved, event);
}

void SpectrogramComponent::mouseEnter (const juce::MouseEvent& event)
{
    if (onMouseEntered != nullptr)
        onMouseEntered (event);
}

void SpectrogramComponent::mouseExit (const juce::MouseEvent& event)
{
    // The mouse is still over the view when it moves onto a child or a popup of it.
    if (! isMouseOver (true) && onMouseExited != nullptr)
        onMouseExited (event);
}

void SpectrogramComponent::mouseDown (const juce::MouseEvent& event)
{
    storeCursor (event);

    // Only a plain left click is handled here: the container opens the menu, and the middle button has no function.
    if (! pluginCore::isEditingClick (event.mods))
        return;

    if (event.mods.isShiftDown())
    {
        toggleFreeze();
        return;
    }

    if (onMouseHeld != nullptr)
    {
        crosshairVisible = true;
        setMouseCursor (juce::MouseCursor::NoCursor);
        callWithFrequency (onMouseHeld, event);
        repaintCrosshair();
    }
}

void SpectrogramComponent::mouseDrag (const juce::MouseEvent& event)
{
    storeCursor (event);

    // A drag moves the crosshair only if its own press has shown it: a drag after a shift-click or with another button
    // does nothing.
    if (! crosshairVisible)
        return;

    if (! pluginCore::isMenuClick (event.mods))
        callWithFrequency (onMouseHeld, event);
}

void SpectrogramComponent::mouseUp (const juce::MouseEvent& event)
{
    if (std::exchange (crosshairVisible, false))
        repaintCrosshair();

    setMouseCursor (juce::MouseCursor::CrosshairCursor);

    if (onMouseReleased != nullptr)
        onMouseReleased (event);
}

void SpectrogramComponent::toggleFreeze()
{
    freezeAttachment.setValueAsCompleteGesture (isOn (freezeParameter) ? 0.0f : 1.0f);
}

//==============================================================================
bool SpectrogramComponent::keyPressed (const juce::KeyPress& key) { return menuKey::isShiftF10 (key) && requestMenu(); }

bool SpectrogramComponent::keyStateChanged (bool isKeyDown)
{
    return isKeyDown && menuKey::isMenuKeyDown() && requestMenu();
}

bool SpectrogramComponent::requestMenu()
{
    if (onMenuRequested == nullptr)
        return false;

    onMenuRequested();
    return true;
}

std::unique_ptr<juce::AccessibilityHandler> SpectrogramComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (
        *this,
        juce::AccessibilityRole::image,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::showMenu, [this] { requestMenu(); }));
}

} // namespace mk::orlo
