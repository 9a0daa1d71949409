// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/AudioPluginAudioProcessorEditor.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{

/** The settings panel in the product's window, which is not on the screen. */
class SettingsPanelTest : public testing::Test
{
protected:
    SettingsPanelTest()
    {
        editor.setSize (1818, 1000);
        editor.getMainComponent().setSettingsWanted (true);
    }

    ~SettingsPanelTest() override { settings.getSettings().removeAllProperties (nullptr); }

    [[nodiscard]] juce::Component& child (const char* id)
    {
        auto* const found = panel.findChildWithID (id);

        if (found == nullptr)
            throw std::invalid_argument (id);

        return *found;
    }

    template <typename Callback>
    static void forEachBelow (juce::Component& component, const Callback& callback)
    {
        callback (component);

        for (auto* const below : component.getChildren())
            forEachBelow (*below, callback);
    }

    /** The widget of the given type in a control. */
    template <typename Widget>
    [[nodiscard]] Widget& inner (const char* id)
    {
        Widget* found = nullptr;
        forEachBelow (child (id),
                      [&found] (juce::Component& component)
                      {
                          if (found == nullptr)
                              found = dynamic_cast<Widget*> (&component);
                      });

        if (found == nullptr)
            throw std::invalid_argument (id);

        return *found;
    }

    [[nodiscard]] juce::Slider& slider (const char* id) { return inner<juce::Slider> (id); }

    /** The text that a slider shows. */
    [[nodiscard]] juce::String valueText (const char* id) { return inner<juce::Label> (id).getText(); }

    /** Replaces a slider's value by typing. */
    void type (const char* id, const juce::String& text)
    {
        // Only components on the screen can have the keyboard focus.
        editor.addToDesktop (juce::ComponentPeer::windowIsTemporary);
        editor.setVisible (true);

        auto& label = inner<juce::Label> (id);
        label.showEditor();
        label.getCurrentTextEditor()->setText (text, false);
        label.hideEditor (false);
    }

    [[nodiscard]] float getValue (const juce::String& id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    void setNormalised (const juce::String& id, float value)
    {
        processor.getParameterState().getParameter (id)->setValueNotifyingHost (value);
    }

    void setValue (const juce::String& id, float value)
    {
        setNormalised (id, processor.getParameterState().getParameter (id)->convertTo0to1 (value));
    }

    const TemporaryHome home;
    const pluginCore::PluginGlobalSettings settings;
    AudioPluginAudioProcessor processor;
    AudioPluginAudioProcessorEditor editor { processor };
    SettingsComponent& panel = editor.getMainComponent().getSettingsPanel();
};

} // namespace mk::orlo::test
