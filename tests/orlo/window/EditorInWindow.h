// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/EditorWindow.h"
#include "tests/support/FindComponents.h"
#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <map>

namespace mk::orlo::test
{

/** The editor of a processor in a window on the screen, operated by the real mouse and the real keyboard. Skips
    the tests if there is no screen. */
class EditorInWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        // Everything runs on the message thread, which is too slow under the sanitizer to keep up with the mouse.
        if (hasThreadSanitizer)
            GTEST_SKIP() << "not under ThreadSanitizer";

        processor.prepareToPlay (44100.0, 512);
        set (Params::id::ruler, 1.0f);
        set (Params::id::keyboard, 1.0f);
        set (Params::id::autoFreeze, 0.0f);
        set (Params::id::drawMode, 1.0f); // Scroll: the newest is at the right
        open();
    }

    void TearDown() override
    {
        window = nullptr;
        settings.getSettings().removeAllProperties (nullptr);
    }

    void open()
    {
        window = std::make_unique<EditorWindow> (processor);
        ASSERT_TRUE (window->isOpen);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** The row of the open menu with the given text, or null if there is none. */
    [[nodiscard]] static juce::Component* findMenuRow (const juce::String& text)
    {
        const auto hasText = [&] (const juce::Component& row)
        {
            const auto* const handler = const_cast<juce::Component&> (row).getAccessibilityHandler();
            return handler != nullptr && handler->getTitle() == text;
        };

        return findInside<juce::Component> (*findOpenMenu(), hasText);
    }

    [[nodiscard]] static bool isHighlighted (juce::Component& row)
    {
        return row.getAccessibilityHandler()->getCurrentState().isSelected();
    }

    /** Moves the highlight down to a row. */
    [[nodiscard]] bool keyTo (juce::Component& row)
    {
        return pumpUntil (
            [&, tries = 0]() mutable
            {
                if (! isHighlighted (row) && tries++ % 5 == 0)
                    window->typeKey (Screen::downKey);

                pumpPending();
                return isHighlighted (row);
            });
    }

    [[nodiscard]] float get (const char* id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    /** The normalised values of all parameters, by their names. */
    [[nodiscard]] std::map<juce::String, float> getParameters() const
    {
        std::map<juce::String, float> values;

        for (const auto* const parameter : processor.getParameters())
            values[parameter->getName (100)] = parameter->getValue();

        return values;
    }

    /** Everything that a host would store. */
    [[nodiscard]] juce::String getState() { return processor.getStateXml (true)->toString(); }

    /** Holds the key of a modifier down and waits until the window has received it. Before that, JUCE would
        treat a click as one without the key. Returns false on a timeout. */
    [[nodiscard]] bool holdModifier (unsigned long key, juce::ModifierKeys::Flags modifier)
    {
        window->holdKey (key);
        return pumpUntil ([modifier] { return juce::ModifierKeys::getCurrentModifiers().testFlags (modifier); });
    }

    [[nodiscard]] static bool waitForMenu()
    {
        return pumpUntil ([] { return findOpenMenu() != nullptr && findOpenMenu()->isShowing(); });
    }

    [[nodiscard]] static bool waitUntilNoMenu()
    {
        return pumpUntil ([] { return findOpenMenu() == nullptr; });
    }

    AudioPluginAudioProcessor processor { createEditor };
    const pluginCore::PluginGlobalSettings settings;
    std::unique_ptr<EditorWindow> window;
};

} // namespace mk::orlo::test
