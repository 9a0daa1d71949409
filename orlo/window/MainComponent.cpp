// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MainComponent.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"

#include "plugin_core/style/Palette.h"
#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo
{

MainComponent::MainComponent (pluginCore::PluginEditor& editor, AudioPluginAudioProcessor& audioProcessor)
    : processor (audioProcessor),
      freezeButton (std::make_unique<IconButton> (Params::id::freeze, juce::DrawableButton::ImageFitted)),
      cleanViewMode (audioProcessor.getUIView().getCleanViewModeValue()),
      rulerParameter (findParameter (audioProcessor, Params::id::ruler)),
      keyboardParameter (findParameter (audioProcessor, Params::id::keyboard)),
      freezeParameter (findParameter (audioProcessor, Params::id::freeze)),
      rulerAttachment (rulerParameter, [this] (float) { resized(); }),
      keyboardAttachment (keyboardParameter, [this] (float) { resized(); }),
      freezeAttachment (freezeParameter, [this] (float value) { updateFreezeButton (value); }),
      freezeButtonAttachment (freezeParameter, *freezeButton, &audioProcessor.getUndoManager()),
      sideBar (audioProcessor),
      settingsPanel (editor, audioProcessor),
      spectrogramContainer (audioProcessor, audioProcessor.getFftProcessor(), audioProcessor.getImageBuilder()),
      aboutComponent (audioProcessor)
{
    addAndMakeVisible (spectrogramContainer);
    spectrogramContainer.onExploringChanged = [this] { resized(); };
    addAndMakeVisible (sideBar);
    addChildComponent (settingsPanel);
    connectPanels();
    setUpButtons();
    addChildComponent (aboutComponent);
    setOpaque (true);

    // If the main component did not take the focus, the window would give it to the first button, which the host's
    // space bar would then press. A click on the picture leaves the focus where it is.
    setWantsKeyboardFocus (true);
    setMouseClickGrabsKeyboardFocus (false);

    cleanViewMode.addListener (this);
    updateView();

    // Listens to nested children too, since the mouse is nearly always over one of them.
    addMouseListener (this, true);
}

MainComponent::~MainComponent()
{
    removeMouseListener (this);
    cleanViewMode.removeListener (this);
}

void MainComponent::connectPanels()
{
    sideBar.onSettingsToggled = [this] (bool areWanted) { setSettingsWanted (areWanted); };
    sideBar.onExportClicked = [this] { spectrogramContainer.exportAsImage(); };
    sideBar.onAboutClicked = [this] { aboutComponent.setVisible (true); };
    spectrogramContainer.onSampleRateChanged = [this] (double rate)
    { settingsPanel.updateFreqSliderTextFunctions (rate); };
}

void MainComponent::setUpButtons()
{
    using pluginCore::Icon;

    for (auto* const button : { static_cast<juce::Button*> (freezeButton.get()),
                                static_cast<juce::Button*> (&exportButton),
                                static_cast<juce::Button*> (&viewButton) })
        addChildComponent (button);

    pluginCore::setSwitchIcon (*freezeButton, Icon::freeze);
    freezeButton->setClickingTogglesState (true);

    pluginCore::setIcon (exportButton, Icon::exportPicture);
    exportButton.setTooltip (juce::translate ("Export as PNG"));
    exportButton.setTitle (juce::translate ("Export as PNG"));
    exportButton.onClick = [this] { spectrogramContainer.exportAsImage(); };

    pluginCore::setIcon (viewButton, Icon::viewFull, Icon::viewStandard);
    viewButton.setClickingTogglesState (true);
    viewButton.onStateChange = [this] { viewButtonChanged(); };

    updateFreezeButton (getCurrentValue (freezeParameter));
}

//==============================================================================
bool MainComponent::isFullView() const { return bool (cleanViewMode.getValue()); }

bool MainComponent::isFrozen() const { return processor.isAutoPaused() || isOn (freezeParameter); }

void MainComponent::valueChanged (juce::Value& value)
{
    if (value.refersToSameSourceAs (cleanViewMode))
        updateView();
}

void MainComponent::updateView()
{
    const auto isFull = isFullView();
    const auto tip = isFull ? juce::translate ("Switch to Standard View") : juce::translate ("Switch to Full View");
    viewButton.setToggleState (isFull, juce::dontSendNotification);
    viewButton.setTooltip (tip);
    viewButton.setTitle (tip);

    sideBar.setVisible (! isFull);
    settingsPanel.setVisible (! isFull && settingsWanted);
    exportButton.setVisible (isFull && isFrozen());
    freezeButton->setVisible (isFull && isOn (freezeParameter));

    if (isFull)
        spectrogramContainer.toFront (false);
    else
        spectrogramContainer.toBack();

    for (auto* const button : { static_cast<juce::Component*> (&viewButton),
                                static_cast<juce::Component*> (&exportButton),
                                static_cast<juce::Component*> (freezeButton.get()),
                                static_cast<juce::Component*> (&aboutComponent) })
        button->toFront (false);

    resized();
}

void MainComponent::viewButtonChanged()
{
    if (const auto wanted = viewButton.getToggleState(); wanted != isFullView())
    {
        cleanViewMode = wanted;
        processor.nudgeInternalParameter();
    }
}

void MainComponent::setSettingsWanted (bool areWanted)
{
    settingsWanted = areWanted;
    settingsPanel.setVisible (settingsWanted && ! isFullView());
    resized();
}

void MainComponent::updateExportButton() { exportButton.setVisible (isFullView() && isFrozen()); }

void MainComponent::updateFreezeButton (float freezeValue)
{
    const auto isFreezeOn = freezeValue >= 0.5f;
    const auto tip = isFreezeOn ? juce::translate ("Unfreeze") : juce::translate ("Freeze");
    freezeButton->setTooltip (tip);
    freezeButton->setTitle (tip);

    if (const auto shouldShow = isFreezeOn && isFullView(); shouldShow != freezeButton->isVisible())
    {
        freezeButton->setVisible (shouldShow);
        resized();
    }
}

//==============================================================================
void MainComponent::paint (juce::Graphics& g) { g.fillAll (juce::Colour (pluginCore::palette::window)); }

void MainComponent::paintOverChildren (juce::Graphics& g)
{
    // An exported picture must not contain the frame, so it is painted here and not by the picture.
    if (spectrogramContainer.getSpectrogram().hasKeyboardFocus (false))
    {
        g.setColour (findColour (juce::ComboBox::focusedOutlineColourId));
        g.drawRect (getPictureArea());
    }
}

juce::Rectangle<int> MainComponent::getPictureArea()
{
    auto& picture = spectrogramContainer.getSpectrogram();
    return getLocalArea (&picture, picture.getLocalBounds());
}

void MainComponent::resized()
{
    const auto layout = layOutMain ({ getWidth(),
                                      getHeight(),
                                      isFullView(),
                                      isOn (rulerParameter),
                                      isOn (keyboardParameter),
                                      settingsPanel.isVisible(),
                                      freezeButton->isVisible() });
    aboutComponent.setBounds (getLocalBounds());
    freezeButton->setBounds (layout.freezeButton);
    exportButton.setBounds (layout.exportButton);
    sideBar.setBounds (layout.sideBar);
    settingsPanel.setBounds (layout.settingsPanel);
    spectrogramContainer.setBounds (layout.spectrogram);

    // The button keeps clear of the bar too, whose width the container decides.
    const auto& levelBar = spectrogramContainer.getLevelBar();
    viewButton.setBounds (layout.viewButton.translated (levelBar.isVisible() ? -levelBar.getWidth() : 0, 0));
}

void MainComponent::mouseEnter (const juce::MouseEvent&) { updateViewButtonVisibility(); }

void MainComponent::mouseExit (const juce::MouseEvent&) { updateViewButtonVisibility(); }

void MainComponent::focusOfChildComponentChanged (FocusChangeType cause)
{
    focusCameByKey = cause == focusChangedByTabKey;
    updateViewButtonVisibility();
    repaint(); // the frame of the picture
}

bool MainComponent::keyPressed (const juce::KeyPress& key)
{
    // Shown before the focus moves on, since the focus goes to visible components only.
    if (key.getKeyCode() == juce::KeyPress::tabKey)
    {
        focusCameByKey = true;
        updateViewButtonVisibility();
    }

    return hasKeyboardFocus (false) && spectrogramContainer.getSpectrogram().keyPressed (key);
}

bool MainComponent::keyStateChanged (bool isKeyDown)
{
    // While no control has the focus, the Menu key applies to the picture.
    return hasKeyboardFocus (false) && spectrogramContainer.getSpectrogram().keyStateChanged (isKeyDown);
}

void MainComponent::updateViewButtonVisibility()
{
    // Keyboard users have to be able to reach the button too.
    viewButton.setVisible (isMouseOver (true) || (focusCameByKey && hasKeyboardFocus (true)));
}

} // namespace mk::orlo
