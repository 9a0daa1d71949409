// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/EditorWindow.h"

#include <gtest/gtest.h>

#include <map>

namespace mk::orlo::test
{

/** The editor of a processor in a window on the screen, with the real mouse and the real keyboard at it. Tests
    are skipped where there is no screen. */
class EditorInWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

#if defined(__SANITIZE_THREAD__)
        // All of this is the message thread's, and so slow there that the mouse runs away from it.
        GTEST_SKIP() << "not under ThreadSanitizer";
#endif

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

    [[nodiscard]] float get (const char* id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    /** All parameters in the host's terms, by their names. */
    [[nodiscard]] std::map<juce::String, float> getParameters() const
    {
        std::map<juce::String, float> values;

        for (const auto* const parameter : processor.getParameters())
            values[parameter->getName (100)] = parameter->getValue();

        return values;
    }

    /** Everything that a host would store. */
    [[nodiscard]] juce::String getState() { return processor.getStateXml (true)->toString(); }

    /** Holds the key of that modifier down until the window has heard of it. To ask the system before would
        have JUCE take a click that follows for one without the key. */
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
