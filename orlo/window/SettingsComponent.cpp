// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsComponent.h"

#include "FrequencyText.h"
#include "SettingsLayout.h"
#include "SettingsParts.h"
#include "orlo/parameters/Params.h"
#include "orlo/style/OrloColours.h"

#include "plugin_core/processor/PluginProcessor.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/IconDrawable.h"

#include <cmath>
#include <limits>

namespace mk::orlo
{
using namespace settingsParts;
using pluginCore::Icon;
namespace styleProperty = pluginCore::styleProperty;

namespace
{
// In heights of the button and of the label.
constexpr float presetsIndentShare = 0.26f;
constexpr float textGapShare = 0.15f;

// In widths of the buttons: these differ in width, but their icons have the same size.
constexpr float wideToggleMargin = 0.14f;
constexpr float narrowToggleMargin = 0.03f;

// Small enough for "-140 dB" to fit.
constexpr double shortSliderTextScale = 0.85;

[[nodiscard]] bool isSameRate (double a, double b) noexcept
{
    return std::abs (a - b) <= std::numeric_limits<double>::epsilon() * std::max (std::abs (a), std::abs (b));
}

/** Translations differ in length: makes the text smaller if it does not fit between its borders. */
void fitText (juce::Label& label)
{
    constexpr auto narrowestText = 0.9f; // narrower letters are harder to read than smaller ones
    label.getProperties().set (styleProperty::fontScale, 1.0);

    const auto font = label.getLookAndFeel().getLabelFont (label);
    const auto room = float (label.getBorderSize().subtractedFrom (label.getLocalBounds()).getWidth());
    const auto width = juce::GlyphArrangement::getStringWidth (font, label.getText()) * narrowestText;

    // The label's height may already limit the font, and glyphs do not shrink quite as evenly as fonts do.
    constexpr auto tolerance = 0.98f;
    const auto fullHeight = pluginCore::scaleRule::textHeight (label);

    if (room > 0.0f && width > room)
        label.getProperties().set (styleProperty::fontScale,
                                   double (font.getHeight() * tolerance * room / (width * fullHeight)));
}

/** Gives a label its bounds, and ends its text before the controls on it, which start at x. */
void endTextBefore (juce::Label& label, juce::Rectangle<int> bounds, int x)
{
    const auto gap = juce::roundToInt (float (bounds.getHeight()) * textGapShare);
    label.setBorderSize ({ 0, 0, 0, juce::jmax (0, bounds.getRight() - x + gap) });
    label.setBounds (bounds);
    fitText (label);
}

/** Gives a row's label its bounds, and starts its text at x or further right. */
void beginTextAfter (juce::Label& label, juce::Rectangle<int> bounds, int x)
{
    label.setBorderSize ({ 0, x - bounds.getX(), 0, 0 });
    label.setBounds (bounds);
    fitText (label);
}
} // namespace

SettingsComponent::SettingsComponent (pluginCore::PluginEditor& editorToUse,
                                      pluginCore::PluginProcessor& processorToUse)
    : editor (editorToUse),
      processor (processorToUse),
      hiDPILabel (processorToUse.getParameterState(), Params::id::hiDPI),
      modeBar (processorToUse.getParameterState(), Params::id::mode),
      drawModeBar (processorToUse.getParameterState(), Params::id::drawMode),
      fftSizeBox (processorToUse, Params::id::fftSize),
      scaleBox (processorToUse, Params::id::freqScale),
      autoFreezeToggle (processorToUse,
                        Params::id::autoFreeze,
                        makeToggle (Icon::autoPause, juce::translate ("Auto-Pause"), wideToggleMargin),
                        getAutoFreezeTip(),
                        getAutoFreezeTip()),
      keyboardToggle (processorToUse,
                      Params::id::keyboard,
                      makeToggle (Icon::keyboard, juce::translate ("Show Piano"), narrowToggleMargin),
                      juce::translate ("Show or hide the piano keyboard"),
                      juce::translate ("Show or hide the piano keyboard")),
      rulerToggle (processorToUse,
                   Params::id::ruler,
                   makeToggle (Icon::ruler, juce::translate ("Show Ruler"), narrowToggleMargin),
                   juce::translate ("Show or hide the frequency ruler"),
                   juce::translate ("Show or hide the frequency ruler")),
      speedSlider (processorToUse, Params::id::speed, juce::translate ("Speed")),
      maxFreqSlider (processorToUse, Params::id::maxFreq, juce::translate ("Max Freq")),
      minFreqSlider (processorToUse, Params::id::minFreq, juce::translate ("Min Freq")),
      floorSlider (processorToUse, Params::id::floor, juce::translate ("Floor Gain")),
      ceilingSlider (processorToUse, Params::id::ceiling, juce::translate ("Ceiling Gain")),
      colourBox (processorToUse.getParameterState(), Params::id::colourMap),
      colourPreview (0, false),
      colourMapAttachment (*processorToUse.getParameterState().getParameter (Params::id::colourMap),
                           [this] (float value) { showColourMap (value); }),
      presetActions (processorToUse),
      presetsButton ("presets", juce::DrawableButton::ImageFitted)
{
    setUpLabels();
    setUpAnalysis();
    setUpDisplay();
    setUpSliders();
    setUpColours();
    setUpPresets();

    updateFreqSliderTextFunctions (processorToUse.getPreparedRate());
    editor.getMoveDetector().addListener (this);
}

SettingsComponent::~SettingsComponent() { editor.getMoveDetector().removeListener (this); }

//==============================================================================
void SettingsComponent::add (juce::Component& child, const char* id)
{
    child.setComponentID (id);
    addAndMakeVisible (child);
}

void SettingsComponent::setUpLabels()
{
    const auto addLabel = [this] (juce::Label& label, const char* id, const juce::String& text, LabelKind kind)
    {
        setUpLabel (label, text, kind);
        add (label, id);
    };

    addLabel (title, "title", juce::translate ("Settings"), LabelKind::title);
    addLabel (analysisHeading, "analysisHeading", juce::translate ("Analysis"), LabelKind::heading);
    addLabel (displayHeading, "displayHeading", juce::translate ("Display"), LabelKind::heading);
    addLabel (colourHeading, "colourHeading", juce::translate ("Colour"), LabelKind::heading);
    addLabel (fftSizeLabel, "fftSizeLabel", juce::translate ("FFT Size"), LabelKind::row);
    addLabel (scaleLabel, "scaleLabel", juce::translate ("Scale"), LabelKind::row);
    addLabel (speedLabel, "speedLabel", juce::translate ("Speed"), LabelKind::row);
    addLabel (maxFreqLabel, "maxFreqLabel", juce::translate ("Max Freq"), LabelKind::row);
    addLabel (minFreqLabel, "minFreqLabel", juce::translate ("Min Freq"), LabelKind::row);
}

void SettingsComponent::setUpAnalysis()
{
    setUpBar (modeBar,
              juce::translate ("Analysis"),
              { juce::translate ("Standard FFT"), juce::translate ("Sharper, more precise analysis") });
    add (modeBar, "modeBar");

    setUpBox (fftSizeBox.getComboBox(),
              Params::id::fftSize,
              juce::translate ("FFT Size"),
              juce::translate ("Sets the analysis window length"));
    fftSizeBox.getComboBox().getProperties().set (styleProperty::numCol, 2);
    add (fftSizeBox, "fftSizeBox");
}

void SettingsComponent::setUpDisplay()
{
    hiDPILabel.setTitle (juce::translate ("High resolution"));
    hiDPILabel.setTooltip (juce::translate ("Enables sharper rendering on high-resolution displays"));
    add (hiDPILabel, "hiDPILabel");
    hiDPILabel.setVisible (false);

    setUpBar (drawModeBar,
              juce::translate ("Display"),
              { juce::translate ("Show a looping spectrogram that updates in place"),
                juce::translate ("Scroll the spectrogram continuously from right to left") });
    add (drawModeBar, "drawModeBar");
    add (autoFreezeToggle, "autoFreezeToggle");

    setUpBox (scaleBox.getComboBox(),
              Params::id::freqScale,
              juce::translate ("Scale"),
              juce::translate ("Choose how frequencies are distributed vertically (Linear, Log, Mel, Bark, ERB)"));
    scaleBox.getComboBox().getProperties().set (styleProperty::numCol, 2);
    add (scaleBox, "scaleBox");
    add (keyboardToggle, "keyboardToggle");
    add (rulerToggle, "rulerToggle");
}

void SettingsComponent::setUpSliders()
{
    const auto addSlider = [this] (pluginCore::PluginSliderControl& control, const char* id, const juce::String& tip)
    {
        setUpSlider (control, tip);
        add (control, id);
        const auto* const parameter = processor.getParameterState().getParameter (control.getParamIDs()[0]);
        control.getSlider().setTextValueSuffix (parameter->getLabel().trimEnd());
    };

    addSlider (speedSlider, "speedSlider", juce::translate ("Controls how fast the spectrogram scrolls"));
    addSlider (maxFreqSlider, "maxFreqSlider", juce::translate ("Set the highest frequency shown in the spectrogram"));
    addSlider (minFreqSlider, "minFreqSlider", juce::translate ("Set the lowest frequency shown in the spectrogram"));
    addSlider (
        floorSlider, "floorSlider", juce::translate ("Adjust the lower amplitude limit to reveal quieter details"));
    addSlider (
        ceilingSlider, "ceilingSlider", juce::translate ("Adjust the upper amplitude limit for the brightest levels"));

    for (auto* const control : { &floorSlider, &ceilingSlider })
    {
        control->getProperties().set (styleProperty::reversed, true);
        control->getProperties().set (styleProperty::fontScale, shortSliderTextScale);
    }
}

void SettingsComponent::setUpColours()
{
    const auto tip = juce::translate ("Select a colour palette for the spectrogram");
    setUpBox (colourBox.getComboBox(), Params::id::colourMap, juce::translate ("Colour"), tip);
    add (colourBox, "colourBox");

    arrows.onPrevious = [this] { colourBox.step (-1); };
    arrows.onNext = [this] { colourBox.step (1); };
    arrows.setName (Params::id::colourMap);
    add (arrows, "arrows");

    colourPreview.onClick = [this] { colourBox.showPopup(); };
    colourPreview.setName (Params::id::colourMap);
    colourPreview.setTooltip (tip);
    colourPreview.setHelpText (tip);
    add (colourPreview, "colourPreview");
    colourMapAttachment.sendInitialUpdate();
}

void SettingsComponent::setUpPresets()
{
    pluginCore::setIcon (presetsButton, Icon::presets);
    presetsButton.getProperties().set (styleProperty::bg, true);
    presetsButton.setTitle (juce::translate ("Preset menu"));
    presetsButton.setTooltip (juce::translate ("Open the preset menu to save, load, or reset settings"));
    presetsButton.onClick = [this] { showPresetsMenu(); };
    add (presetsButton, "presetsButton");
}

//==============================================================================
void SettingsComponent::showPresetsMenu()
{
    presetsMenu = presetActions.makeMenu();
    const auto options = juce::PopupMenu::Options()
                             .withTargetComponent (presetsButton)
                             .withParentComponent (findParentComponentOfClass<juce::AudioProcessorEditor>())
                             .withMinimumWidth (presetsButton.getWidth())
                             .withStandardItemHeight (presetsButton.getHeight());

    presetsMenu.menu.showMenuAsync (options,
                                    [panel = SafePointer (this)] (int id)
                                    {
                                        if (panel == nullptr)
                                            return;

                                        panel->presetsButton.repaint();
                                        panel->presetActions.perform (id, panel->presetsMenu);
                                    });
}

void SettingsComponent::updateFreqSliderTextFunctions (double newSampleRate)
{
    if (isSameRate (newSampleRate, sampleRate))
        return;

    sampleRate = newSampleRate;

    for (auto* const control : { &minFreqSlider, &maxFreqSlider })
    {
        auto& slider = control->getSlider();
        slider.textFromValueFunction = [newSampleRate] (double value)
        { return frequencyText::fromPercent (value, newSampleRate); };
        slider.valueFromTextFunction = [newSampleRate] (const juce::String& text)
        { return frequencyText::toPercent (text, newSampleRate); };
        slider.updateText();
    }
}

void SettingsComponent::retinaStateChanged (pluginCore::PluginMoveDetector&, bool isOnRetinaDisplay)
{
    setOnRetinaDisplay (isOnRetinaDisplay);
}

void SettingsComponent::setOnRetinaDisplay (bool isOnRetinaDisplay)
{
    hiDPILabel.setVisible (isOnRetinaDisplay);
    resized();
}

void SettingsComponent::showColourMap (float value)
{
    // Reserved choices have no map.
    const auto index = juce::roundToInt (value + 1.0f) - 1;
    colourMapIndex = juce::isPositiveAndBelow (index, ColourMapPreviewComponent::getNumMaps()) ? index : 0;
    colourPreview.setMapIndex (colourMapIndex);
    juce::NullCheckedInvocation::invoke (onColourMapChanged, colourMapIndex);
}

//==============================================================================
void SettingsComponent::paint (juce::Graphics& g) { g.fillAll (findColour (colourId::panelBackground)); }

void SettingsComponent::resized()
{
    const auto layout = SettingsLayout::forSize (getWidth(), getHeight());
    endTextBefore (title, layout.title, layout.presetsButton.getX());
    presetsButton.setBounds (layout.presetsButton);
    presetsButton.setEdgeIndent (juce::roundToInt (float (layout.presetsButton.getHeight()) * presetsIndentShare));

    const auto leftMargin = layout.analysisHeading.getX();
    analysisHeading.setBounds (layout.analysisHeading);
    modeBar.setBounds (layout.modeBar);
    beginTextAfter (fftSizeLabel, layout.fftSizeLabel, leftMargin);
    fftSizeBox.setBounds (layout.fftSizeBox);

    endTextBefore (displayHeading,
                   layout.displayHeading,
                   hiDPILabel.isVisible() ? layout.hiDPILabel.getX() : layout.displayHeading.getRight());
    hiDPILabel.setBounds (layout.hiDPILabel);
    drawModeBar.setBounds (layout.drawModeBar);
    autoFreezeToggle.setBounds (layout.autoFreezeToggle);
    beginTextAfter (scaleLabel, layout.scaleLabel, leftMargin);
    scaleBox.setBounds (layout.scaleBox);
    keyboardToggle.setBounds (layout.keyboardToggle);
    rulerToggle.setBounds (layout.rulerToggle);

    beginTextAfter (speedLabel, layout.speedLabel, leftMargin);
    speedSlider.setBounds (layout.speedSlider);
    beginTextAfter (maxFreqLabel, layout.maxFreqLabel, leftMargin);
    maxFreqSlider.setBounds (layout.maxFreqSlider);
    beginTextAfter (minFreqLabel, layout.minFreqLabel, leftMargin);
    minFreqSlider.setBounds (layout.minFreqSlider);

    colourHeading.setBounds (layout.colourHeading);
    colourBox.setBounds (layout.colourBox);
    arrows.setBounds (layout.arrows);
    colourPreview.setBounds (layout.colourPreview);
    floorSlider.setBounds (layout.floorSlider);
    ceilingSlider.setBounds (layout.ceilingSlider);
}

} // namespace mk::orlo
