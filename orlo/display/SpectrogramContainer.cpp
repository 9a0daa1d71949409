// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramContainer.h"

#include "ContainerLayout.h"
#include "ContextMenu.h"
#include "NoteNames.h"
#include "PictureClipboard.h"
#include "PictureFile.h"
#include "StripText.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"
#include "orlo/processor/Product.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
void toggle (pluginCore::ParameterAttachment& attachment, const juce::RangedAudioParameter& parameter)
{
    attachment.setValueAsCompleteGesture (isOn (parameter) ? 0.0f : 1.0f);
}
} // namespace

SpectrogramContainer::SpectrogramContainer (AudioPluginAudioProcessor& audioProcessor,
                                            FFTProcessor& fftProcessor,
                                            SpectrogramImageBuilder& imageBuilder)
    : openPage ([] (const juce::URL& url) { url.launchInDefaultBrowser(); }),
      processor (audioProcessor),
      spectrogram (audioProcessor, fftProcessor, imageBuilder),
      exploration (audioProcessor, spectrogram),
      exploreGestures (exploration, spectrogram),
      rulerParameter (findParameter (audioProcessor, Params::id::ruler)),
      keyboardParameter (findParameter (audioProcessor, Params::id::keyboard)),
      freezeParameter (findParameter (audioProcessor, Params::id::freeze)),
      modeParameter (findParameter (audioProcessor, Params::id::mode)),
      rulerAttachment (rulerParameter,
                       [this] (float value)
                       {
                           ruler.setVisible (value >= 0.5f);
                           resized();
                       }),
      keyboardAttachment (keyboardParameter,
                          [this] (float value)
                          {
                              keyboard.setVisible (value >= 0.5f);
                              resized();
                          }),
      minFreqAttachment (findParameter (audioProcessor, Params::id::minFreq),
                         [this] (float value)
                         {
                             minFraction = value * 0.01f;
                             updateRange();
                         }),
      maxFreqAttachment (findParameter (audioProcessor, Params::id::maxFreq),
                         [this] (float value)
                         {
                             maxFraction = value * 0.01f;
                             updateRange();
                         }),
      freqScaleAttachment (findParameter (audioProcessor, Params::id::freqScale),
                           [this] (float value) { scale.setScaleType (juce::roundToInt (value)); }),
      freezeAttachment (freezeParameter, [] (float) {}),
      sampleRate (float (audioProcessor.getPreparedRate())),
      tuning (audioProcessor.getUIView()),
      exporter (audioProcessor.getProductInfo().name + " " + audioProcessor.getProductInfo().version)
{
    for (auto* const component : { static_cast<juce::Component*> (this),
                                   static_cast<juce::Component*> (&ruler),
                                   static_cast<juce::Component*> (&keyboard),
                                   static_cast<juce::Component*> (&readout) })
        component->getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);

    addAndMakeVisible (spectrogram);
    addChildComponent (ruler);
    addChildComponent (keyboard);
    addChildComponent (timeStrip);
    addChildComponent (levelBar);
    addChildComponent (readout);
    addAndMakeVisible (tooltipDisplay);
    addChildComponent (tuning.getEntry());
    addChildComponent (exporter.getDialog());
    addChildComponent (exporter.getNotice());
    tooltipDisplay.setHideWhenEmpty (true);

    for (auto* const attachment :
         { &rulerAttachment, &keyboardAttachment, &minFreqAttachment, &maxFreqAttachment, &freqScaleAttachment })
        attachment->sendInitialUpdate();

    // A click leaves the keyboard focus with the host.
    for (auto* const component : { static_cast<juce::Component*> (this),
                                   static_cast<juce::Component*> (&ruler),
                                   static_cast<juce::Component*> (&keyboard) })
        component->setMouseClickGrabsKeyboardFocus (false);

    connectMouse();
    exploreGestures.addStrip (timeStrip);
    connectExports();
    spectrogram.getExplorer().addListener (this);
    keyboard.setTuning (tuning.getTuning());
    tuning.onChanged = [this] { keyboard.setTuning (tuning.getTuning()); };
    tuning.onChosen = [this] { processor.nudgeInternalParameter(); };
    spectrogram.onSampleRateChanged = [this] (double rate) { sampleRateChanged (rate); };
    updateRange();

    // Listens to nested children too, so that a right click on any of them opens the menu.
    addMouseListener (this, true);
}

SpectrogramContainer::~SpectrogramContainer()
{
    spectrogram.getExplorer().removeListener (this);
    removeMouseListener (this);
}

//==============================================================================
void SpectrogramContainer::connectMouse()
{
    spectrogram.onMouseMoved = [this] (const juce::MouseEvent& event, float hz) { showReadout (event, hz, false); };

    spectrogram.onMouseHeld = [this] (const juce::MouseEvent& event, float hz) { hold (event, hz); };

    spectrogram.onMouseEntered = [this] (const juce::MouseEvent&) { readout.setVisible (true); };
    spectrogram.onMouseExited = [this] (const juce::MouseEvent&) { readout.setVisible (false); };
    spectrogram.onMouseReleased = [this] (const juce::MouseEvent&)
    { keyboard.setHighlightedNote (KeyboardScaleComponent::noNote); };
    spectrogram.onTick = [this] { exploration.tick(); };
    spectrogram.onMenuRequested = [this] { showContextMenuOnPicture(); };
}

void SpectrogramContainer::connectExports()
{
    exporter.findSubject = [this] { return exploration.findSubject(); };
    exporter.chooseFile = [this] (const juce::String& title,
                                  const juce::String& patterns,
                                  std::function<void (const juce::File&)> onChosen)
    { chooseFile (title, patterns, std::move (onChosen)); };

    spectrogram.onKeyPressed = [this, explore = spectrogram.onKeyPressed] (const juce::KeyPress& key)
    { return copyMeasurement (key) || (explore != nullptr && explore (key)); };
}

void SpectrogramContainer::hold (const juce::MouseEvent& event, float hz)
{
    const auto place = measuring.hold (event.position,
                                       { spectrogram.getWidth(), spectrogram.getHeight() },
                                       event.mouseWasDraggedSinceMouseDown(),
                                       ! event.mods.isAltDown());
    auto pitch = double (hz);

    if (place)
    {
        pitch = measuring.getFrequency();
        spectrogram.moveCrosshair (*place);
        readout.show (event, measuring.getText (tuning.getTuning()), true, spectrogram.getBounds());
    }
    else
    {
        showReadout (event, hz, true);
    }

    keyboard.setHighlightedNote (juce::roundToInt (notes::noteForFrequency (pitch, tuning.getTuning().concertPitch)));
}

bool SpectrogramContainer::copyMeasurement (const juce::KeyPress& key)
{
    const auto text = measuring.getText (tuning.getTuning());

    if (key != juce::KeyPress ('c', juce::ModifierKeys::commandModifier, 0) || text.isEmpty())
        return false;

    juce::SystemClipboard::copyTextToClipboard (text);
    return true;
}

void SpectrogramContainer::showReadout (const juce::MouseEvent& event, float hz, bool followCursor)
{
    readout.show (event, formatReadout (double (hz), tuning.getTuning()), followCursor, spectrogram.getBounds());
}

void SpectrogramContainer::mouseDown (const juce::MouseEvent& event)
{
    // The strip has a menu of its own.
    if (pluginCore::isMenuClick (event.mods) && event.eventComponent != &timeStrip)
        showContextMenuAtMouse();
}

//==============================================================================
void SpectrogramContainer::showContextMenuAtMouse()
{
    showContextMenu (juce::PopupMenu::Options {}.withMousePosition());
}

void SpectrogramContainer::showContextMenuOnPicture()
{
    // A keyboard user starts at the first entry, so it is highlighted when the menu opens.
    const auto middle = spectrogram.getScreenBounds().getCentre();
    showContextMenu (juce::PopupMenu::Options {}
                         .withTargetScreenArea ({ middle.x, middle.y, 1, 1 })
                         .withInitiallySelectedItem (contextMenu::freeze));
}

void SpectrogramContainer::showContextMenu (const juce::PopupMenu::Options& options)
{
    contextMenu::State state { isOn (freezeParameter),   processor.getUIView().cleanViewMode.get(),
                               isOn (keyboardParameter), isOn (rulerParameter),
                               isOn (modeParameter),     processor.getPointsKept() };
    tuning.describe (state);
    state.isStereo = processor.getTotalNumInputChannels() > 1;
    state.source = processor.getUIView().getSource();
    state.isSoundKept = exploration.findSubject().has_value();
    state.canCopyPictures = pictureClipboard::isAvailable();
    contextMenu::fill (contextMenu, state);

    auto* const editor = findParentComponentOfClass<juce::AudioProcessorEditor>();
    const auto itemHeight = editor != nullptr ? getContextMenuItemHeight (editor->getWidth(), editor->getHeight())
                                              : getContextMenuItemHeight (0, 0);

    readout.setVisible (false);
    contextMenu.showMenuAsync (options.withParentComponent (editor).withStandardItemHeight (itemHeight),
                               [self = juce::Component::SafePointer (this)] (int result)
                               {
                                   if (self != nullptr)
                                       self->carryOut (result);
                               });
}

void SpectrogramContainer::carryOut (int menuItem)
{
    if (const auto points = contextMenu::findPoints (menuItem))
        processor.setPointsKept (*points);

    if (const auto source = contextMenu::findSource (menuItem))
    {
        processor.getUIView().setSource (*source);
        processor.nudgeInternalParameter();
    }

    tuning.carryOut (menuItem);
    exporter.carryOut (menuItem);

    switch (menuItem)
    {
        case contextMenu::freeze: toggle (freezeAttachment, freezeParameter); break;
        case contextMenu::exportPicture: exportAsImage(); break;
        case contextMenu::ruler: toggle (rulerAttachment, rulerParameter); break;
        case contextMenu::keyboard: toggle (keyboardAttachment, keyboardParameter); break;
        case contextMenu::view: switchView(); break;
        case contextMenu::manual: openPage (getManualUrl (processor)); break;
        default: break;
    }
}

void SpectrogramContainer::switchView()
{
    auto& isFullView = processor.getUIView().cleanViewMode;
    isFullView = ! isFullView.get();
    processor.nudgeInternalParameter();
}

//==============================================================================
void SpectrogramContainer::exportAsImage()
{
    chooseFile (juce::translate ("Save as png"), "*.png", [this] (const juce::File& file) { exportTo (file); });
}

void SpectrogramContainer::chooseFile (const juce::String& title,
                                       const juce::String& patterns,
                                       std::function<void (const juce::File&)> onChosen)
{
    const auto lastFile = globalSettings.getSettings()[pluginCore::SettingsIds::lastExportFile];
    const auto start = pictureFile::chooseStart (lastFile.toString());

    // The last export may have been a file of another kind.
    const auto suffix = patterns.upToFirstOccurrenceOf (";", false, false).trimCharactersAtStart ("*");
    fileChooser = std::make_unique<juce::FileChooser> (title,
                                                       start.isDirectory() ? start : start.withFileExtension (suffix),
                                                       patterns,
                                                       true,
                                                       false,
                                                       findDialogParent());
    fileChooser->launchAsync (juce::FileBrowserComponent::saveMode | juce::FileBrowserComponent::canSelectFiles
                                  | juce::FileBrowserComponent::warnAboutOverwriting,
                              [this, action = std::move (onChosen)] (const juce::FileChooser& chooser)
                              {
                                  const auto file = chooser.getResult();

                                  if (file == juce::File())
                                      return;

                                  globalSettings.getSettings().setProperty (
                                      pluginCore::SettingsIds::lastExportFile, file.getFullPathName(), nullptr);
                                  action (file);
                              });
}

juce::Component* SpectrogramContainer::findDialogParent() const
{
    // JUCE draws its own dialog inside the parent at this size, so a smaller window would cut it off.
    constexpr int dialogWidth = 600, dialogHeight = 500;
    auto* const editor = findParentComponentOfClass<juce::AudioProcessorEditor>();
    const auto hasRoom = editor != nullptr && editor->getWidth() >= dialogWidth && editor->getHeight() >= dialogHeight;

    return (hasRoom || juce::FileChooser::isPlatformDialogAvailable()) ? editor : nullptr;
}

void SpectrogramContainer::exportTo (const juce::File& chosenFile)
{
    if (chosenFile == juce::File())
        return;

    const auto file = pictureFile::withPngExtension (chosenFile);
    globalSettings.getSettings().setProperty (pluginCore::SettingsIds::lastExportFile, file.getFullPathName(), nullptr);

    pictureWriter.write (createPicture(), file);
}

juce::Image SpectrogramContainer::createPicture()
{
    return createComponentSnapshot (getLocalBounds(), true, spectrogram.isDoubleResolution() ? 2.0f : 1.0f);
}

//==============================================================================
void SpectrogramContainer::updateRange()
{
    const auto nyquist = sampleRate * 0.5f;
    const auto low = juce::jlimit (0.0f, nyquist, minFraction * nyquist);
    scale.setRange (low, juce::jlimit (low, nyquist, maxFraction * nyquist));
}

void SpectrogramContainer::sampleRateChanged (double newRate)
{
    if (newRate > 0.0 && ! juce::approximatelyEqual (float (newRate), sampleRate))
    {
        sampleRate = float (newRate);
        updateRange();
    }

    if (onSampleRateChanged != nullptr)
        onSampleRateChanged (newRate);
}

//==============================================================================
void SpectrogramContainer::resized()
{
    const auto* const editor = findParentComponentOfClass<juce::AudioProcessorEditor>();
    const auto layout = layOutContainer (getWidth(),
                                         getHeight(),
                                         pluginCore::scaleRule::textHeight (*this),
                                         editor != nullptr ? editor->getHeight() : 0,
                                         ruler.isVisible(),
                                         keyboard.isVisible(),
                                         spectrogram.getExplorer().isExploring());
    ruler.setBounds (layout.ruler);
    keyboard.setBounds (layout.keyboard);
    timeStrip.setBounds (layout.timeStrip);
    levelBar.setBounds (layout.levelBar);
    spectrogram.setBounds (layout.picture);
    tooltipDisplay.setBounds (layout.helpLine);
}

void SpectrogramContainer::exploringChanged()
{
    const auto isExploring = spectrogram.getExplorer().isExploring();
    timeStrip.setVisible (isExploring);
    levelBar.setVisible (isExploring);
    resized();

    if (onExploringChanged != nullptr)
        onExploringChanged();
}

void SpectrogramContainer::lookAndFeelChanged() { resized(); }

void SpectrogramContainer::parentHierarchyChanged() { resized(); }

} // namespace mk::orlo
