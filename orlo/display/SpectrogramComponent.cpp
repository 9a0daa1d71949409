// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramComponent.h"

#include "ExploredPainter.h"

#include "orlo/analysis/HopPlan.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"

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
    explorer.addListener (this);
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
    explorer.removeListener (this);
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

    if (onTick != nullptr)
        onTick();

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
    // The frozen picture keeps its size, for the time after exploring.
    if (explorer.isExploring())
        explorer.setSize (getWidth() << int (doubleResolution), getHeight() << int (doubleResolution));
    else if (hopSize >= 1 && samplesPerColumn >= 1 && getWidth() >= 1 && getHeight() >= 1)
        imageBuilder.setRequestedSize (getWidth() << int (doubleResolution), getHeight() << int (doubleResolution));
}

void SpectrogramComponent::resized() { requestImageSize(); }

void SpectrogramComponent::exploringChanged()
{
    // After exploring, the builder is asked only once the view has its old size again.
    if (explorer.isExploring())
        requestImageSize();

    repaint();
}

//==============================================================================
void SpectrogramComponent::paint (juce::Graphics& g)
{
    const auto& picture = imageBuilder.getPicture();

    if (picture.getWidth() < 1)
    {
        g.fillAll (juce::Colours::black);
        return;
    }

    if (! paintExplored (g, explorer, getLocalBounds()))
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
    const auto explored = explorer.getFrequencyScale();
    return (explored != nullptr ? *explored : imageBuilder.getFrequencyScale()).frequencyForPosition (position);
}

//==============================================================================
std::unique_ptr<juce::AccessibilityHandler> SpectrogramComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (
        *this,
        juce::AccessibilityRole::image,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::showMenu, [this] { requestMenu(); }));
}

} // namespace mk::orlo
