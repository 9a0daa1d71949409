// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/controls/ButtonBarComponent.h"
#include "plugin_core/controls/PluginComboBoxControl.h"
#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/controls/PluginToggleControl.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace mk::orlo::test
{
namespace
{
using pluginCore::PluginComboBoxControl;
using pluginCore::PluginSliderControl;
using pluginCore::PluginToggleControl;

constexpr int numRounds = 20;
constexpr int valuesPerRound = 50;

/** One control of each kind. */
struct Controls
{
    explicit Controls (TestProcessor& processor)
        : one (processor, "skewed", {}),
          two (processor, juce::StringArray { "floor", "ceiling" }, {}),
          box (processor, "choice"),
          toggle (processor, "flag", std::make_unique<juce::TextButton>().release(), "off", "on"),
          bar (processor.getParameterState(), "choice")
    {
    }

    [[nodiscard]] bool shows (float skewed, float floor, float ceiling, int choice, bool flag)
    {
        auto& range = two.getSlider();
        return std::abs (one.getSlider().getValue() - double (skewed)) < 0.01
               && std::abs (range.getMinValue() - double (floor)) < 0.01
               && std::abs (range.getMaxValue() - double (ceiling)) < 0.01
               && two.getValueLabel (0)->getText() == range.getTextFromValue (double (floor))
               && two.getValueLabel (1)->getText() == range.getTextFromValue (double (ceiling))
               && box.getComboBox().getSelectedItemIndex() == choice && toggle.getButton().getToggleState() == flag
               && bar.getButton (choice).getToggleState();
    }

    PluginSliderControl one, two;
    PluginComboBoxControl box;
    PluginToggleControl toggle;
    ButtonBarComponent bar;
};

TEST (ControlsStress, EachControlShowsTheLastValueAutomatedByAnotherThread)
{
    TestProcessor processor;
    Controls controls (processor);
    std::atomic<bool> isDone { false }; // set by the host's thread, read by the message thread

    std::thread host (
        [&]
        {
            for (int i = 0; i < numRounds * valuesPerRound; ++i)
            {
                processor.setValue ("skewed", float (i % 100));
                processor.setValue ("floor", -140.0f + float (i % 60));
                processor.setValue ("ceiling", -float (i % 60));
                processor.setValue ("choice", float (i % 4));
                processor.setValue ("flag", float (i % 2));

                if (i % valuesPerRound == 0)
                    juce::Thread::sleep (1);
            }

            processor.setValue ("skewed", 33.0f);
            processor.setValue ("floor", -77.0f);
            processor.setValue ("ceiling", -11.0f);
            processor.setValue ("choice", 2.0f);
            processor.setValue ("flag", 1.0f);
            isDone.store (true, std::memory_order_release);
        });

    // Controls are created and destroyed while values arrive.
    for (int i = 0; i < numRounds; ++i)
    {
        const Controls shortLived (processor);
        pumpPending();
    }

    EXPECT_TRUE (pumpUntil ([&] { return isDone.load (std::memory_order_acquire); }, 60.0));
    host.join();
    EXPECT_TRUE (pumpUntil ([&] { return controls.shows (33.0f, -77.0f, -11.0f, 2, true); }));
}

} // namespace
} // namespace mk::orlo::test
