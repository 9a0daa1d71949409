// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/LocalisedStringsManager.h"
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

namespace mk::orlo::lookSheet
{
namespace
{
constexpr double sampleRate = 44100.0;
constexpr int blockSize = 512;

/** Opens the settings panel, as a click on its button does, and shows the tag that only some displays have. */
void openPanel (AudioPluginAudioProcessorEditor& editor)
{
    auto& main = editor.getMainComponent();
    main.setSettingsWanted (true);
    main.getSettingsPanel().setOnRetinaDisplay (true);
}

template <typename Callback>
void forEachBelow (juce::Component& component, const Callback& callback)
{
    callback (component);

    for (auto* const child : component.getChildren())
        forEachBelow (*child, callback);
}

/** Puts all buttons below the component into a state. */
void setStates (juce::Component& component, juce::Button::ButtonState state)
{
    forEachBelow (component,
                  [state] (juce::Component& below)
                  {
                      if (auto* const button = dynamic_cast<juce::Button*> (&below))
                          button->setState (state);
                  });
}

/** Opens the menu of a button or a box, shows what the callback makes of it, and closes it again. */
void withOpenMenu (juce::Component& panel, const juce::String& id, const std::function<void()>& show)
{
    forEachBelow (*panel.findChildWithID (id),
                  [] (juce::Component& below)
                  {
                      if (auto* const button = dynamic_cast<juce::DrawableButton*> (&below))
                          button->onClick();
                      else if (auto* const box = dynamic_cast<juce::ComboBox*> (&below))
                          box->showPopup();
                  });

    show();
    juce::PopupMenu::dismissAllActiveMenus();
}
} // namespace

void forEachPanel (const std::function<void (const juce::String& name, juce::Component& window)>& show)
{
    for (const auto* const language : { "en", "fr", "es", "pt", "it" })
    {
        AudioPluginAudioProcessor processor;
        processor.setRateAndBufferSizeDetails (sampleRate, blockSize);
        processor.prepareToPlay (sampleRate, blockSize);
        LocalisedStringsManager().setLanguage (language);

        for (const auto width : { 1050, 1818, 3840 })
        {
            AudioPluginAudioProcessorEditor editor (processor);
            editor.setSize (width, juce::roundToInt (float (width) / 1.818f));
            openPanel (editor);
            show (juce::String ("panel-") + language + "-" + juce::String (width), editor);
        }

        AudioPluginAudioProcessorEditor editor (processor);
        editor.setSize (1050, 578);
        openPanel (editor);
        auto& panel = editor.getMainComponent().getSettingsPanel();
        withOpenMenu (panel, "presetsButton", [&] { show (juce::String ("presets-") + language, editor); });

        if (juce::String (language) != "en")
            continue;

        setStates (editor, juce::Button::buttonOver);
        show ("panel-over", editor);
        setStates (editor, juce::Button::buttonDown);
        show ("panel-down", editor);
        setStates (editor, juce::Button::buttonNormal);

        // The menus are windows of their own, which need a display.
        if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
            continue;

        editor.addToDesktop (0);
        editor.setVisible (true);

        for (const auto* const box : { "fftSizeBox", "scaleBox", "colourBox" })
            withOpenMenu (panel,
                          box,
                          [&]
                          {
                              if (auto* const menu = juce::Component::getCurrentlyModalComponent())
                                  show (juce::String ("menu-") + box, *menu);
                          });
    }
}

} // namespace mk::orlo::lookSheet
