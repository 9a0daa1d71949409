// SPDX-License-Identifier: AGPL-3.0-or-later
// A host automates every parameter while the window is open, moved and closed; needs a display.
#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/controls/RetinaParamLabel.h"
#include "orlo/display/ColourComboBoxControl.h"
#include "orlo/display/ColourMapPreviewComponent.h"
#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "plugin_core/controls/PluginComboBoxControl.h"
#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/controls/PluginToggleControl.h"
#include "tests/support/EditorWindow.h"
#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <optional>
#include <thread>

namespace mk::orlo::test
{
namespace
{
constexpr double stressSeconds = 10.0;

// ThreadSanitizer slows the message thread so much that it would only deliver values, and never move the window.
constexpr int periodMicroseconds = hasThreadSanitizer ? 50000 : 1000;

/** Changes every parameter at short intervals on its own thread, and sets it to its last value at the end. */
class Automation
{
public:
    explicit Automation (juce::AudioProcessor& processor) : parameters (processor.getParameters()) {}

    ~Automation()
    {
        shouldStop.store (true, std::memory_order_release);
        thread.join();
    }

    [[nodiscard]] static float getLastValue (int index) { return index % 2 == 0 ? 0.25f : 0.125f; }

private:
    void run()
    {
        for (int step = 0; ! shouldStop.load (std::memory_order_acquire); ++step)
        {
            for (auto* const parameter : parameters)
                parameter->setValueNotifyingHost (float ((step * 7 + parameter->getParameterIndex() * 13) % 101)
                                                  * 0.01f);

            std::this_thread::sleep_for (std::chrono::microseconds (periodMicroseconds));
        }

        for (auto* const parameter : parameters)
            parameter->setValueNotifyingHost (getLastValue (parameter->getParameterIndex()));
    }

    const juce::Array<juce::AudioProcessorParameter*>& parameters;
    std::atomic<bool> shouldStop { false }; // set by the test's thread, read by this object's
    std::thread thread { [this] { run(); } };
};

/** Calls a function with every descendant of a component. */
void forEachBelow (juce::Component& component, const std::function<void (juce::Component&)>& call)
{
    for (auto* const child : component.getChildren())
    {
        call (*child);
        forEachBelow (*child, call);
    }
}

/** A parameter's value as one of the window's controls shows it. */
struct Shown
{
    juce::String paramID;
    double value = 0.0;
};

[[nodiscard]] std::optional<Shown> getShown (juce::Component& component)
{
    const auto getIndex = [] (auto& control) { return double (control.getComboBox().getSelectedItemIndex()); };

    if (auto* const slider = dynamic_cast<pluginCore::PluginSliderControl*> (&component))
        return Shown { slider->getParamIDs()[0], slider->getSlider().getValue() };

    if (auto* const toggle = dynamic_cast<pluginCore::PluginToggleControl*> (&component))
        return Shown { toggle->getParamID(), toggle->getButton().getToggleState() ? 1.0 : 0.0 };

    if (auto* const box = dynamic_cast<pluginCore::PluginComboBoxControl*> (&component))
        return Shown { box->getParamID(), getIndex (*box) };

    if (auto* const box = dynamic_cast<ColourComboBoxControl*> (&component))
        return Shown { box->getParamID(), getIndex (*box) };

    if (auto* const preview = dynamic_cast<ColourMapPreviewComponent*> (&component))
        return Shown { Params::id::colourMap, double (preview->getMapIndex()) };

    if (auto* const label = dynamic_cast<RetinaParamLabel*> (&component))
        return Shown { Params::id::hiDPI, label->getAccessibilityHandler()->getCurrentState().isChecked() ? 1.0 : 0.0 };

    if (auto* const bar = dynamic_cast<ButtonBarComponent*> (&component))
        for (int i = 0; i < bar->getNumButtons(); ++i)
            if (bar->getButton (i).getToggleState())
                return Shown { bar->getParamID(), double (i) };

    return std::nullopt;
}

/** The parameters that the window's controls show, and those that a control shows wrongly. */
struct ShownParameters
{
    ShownParameters (juce::Component& window, AudioPluginAudioProcessor& processor)
    {
        forEachBelow (window,
                      [&] (juce::Component& component)
                      {
                          const auto shown = getShown (component);

                          if (! shown.has_value())
                              return;

                          const auto& parameter = *processor.getParameterState().getParameter (shown->paramID);
                          const auto value = double (parameter.convertFrom0to1 (parameter.getValue()));
                          all.addIfNotAlreadyThere (shown->paramID);

                          if (std::abs (shown->value - value) > 0.01)
                              stale.addIfNotAlreadyThere (shown->paramID);
                      });
    }

    juce::StringArray all, stale;
};

/** Opens the window, moves it, closes it, and so on while another thread automates.

    Each step is a posted message. If messages arrive faster than they can be handled, as under a sanitizer, the
    message loop delivers the next one without returning to its caller. [message thread] */
class RestlessWindow
{
public:
    explicit RestlessWindow (AudioPluginAudioProcessor& p) : processor (p), automation (std::in_place, p) { post(); }

    ~RestlessWindow() { close(); }

    /** True once the automation has stopped; the window is open then. */
    [[nodiscard]] bool hasStopped() const noexcept { return ! automation.has_value(); }
    [[nodiscard]] int getNumOpened() const noexcept { return numOpened; }
    [[nodiscard]] MainComponent& getMain() { return editor->getMainComponent(); }

private:
    static constexpr int numMoves = 10;

    // Small, so that painting leaves time for everything else even under a sanitizer.
    static constexpr int width = 300, height = 165;

    void post()
    {
        juce::MessageManager::callAsync ([this] { step(); });
    }

    void step()
    {
        if (editor == nullptr)
            open();
        else if (numMovesDone < numMoves)
            move();
        else if (getNow() < end || numOpened < leastOpened)
            close();
        else
            return automation.reset();

        post();
    }

    void open()
    {
        processor.getSessionState().pluginEditorWidth = width;
        processor.getSessionState().pluginEditorHeight = height;
        editor.reset (dynamic_cast<AudioPluginAudioProcessorEditor*> (processor.createEditorIfNeeded()));
        editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
        editor->setVisible (true);
        getMain().setSettingsWanted (true);
        ++numOpened;
        numMovesDone = 0;
    }

    void move()
    {
        editor->setTopLeftPosition (numMovesDone * 10, numMovesDone * 5);
        editor->setSize (width + numMovesDone * 5, height);
        ++numMovesDone;
    }

    void close() { editor = nullptr; }

    [[nodiscard]] static double getNow() { return juce::Time::getMillisecondCounterHiRes() * 0.001; }

    AudioPluginAudioProcessor& processor;
    std::unique_ptr<AudioPluginAudioProcessorEditor> editor;
    std::optional<Automation> automation;
    const double end = getNow() + stressSeconds;
    static constexpr int leastOpened = 2; // on a slow machine the time may be over before the first window closes
    int numOpened = 0, numMovesDone = 0;
};

TEST (WindowStress, AutomationOfEveryParameterWhileTheWindowOpensMovesAndCloses)
{
    if (! Screen::getInstance().isAvailable())
        GTEST_SKIP() << "needs a screen";

    AudioPluginAudioProcessor processor { createEditor };
    processor.prepareToPlay (44100.0, 512);
    RestlessWindow window (processor);

    ASSERT_TRUE (pumpUntil ([&] { return window.hasStopped(); }, stressSeconds * 30.0));
    EXPECT_GT (window.getNumOpened(), 1);
    EXPECT_TRUE (pumpUntil ([&] { return ShownParameters (window.getMain(), processor).stale.isEmpty(); }))
        << ShownParameters (window.getMain(), processor).stale.joinIntoString (", ");

    // One parameter has no control.
    EXPECT_EQ (ShownParameters (window.getMain(), processor).all.size(), processor.getParameters().size() - 1);

    for (const auto* const parameter : processor.getParameters())
    {
        const auto& ranged = dynamic_cast<const juce::RangedAudioParameter&> (*parameter);
        EXPECT_NEAR (ranged.convertFrom0to1 (parameter->getValue()),
                     ranged.convertFrom0to1 (Automation::getLastValue (parameter->getParameterIndex())),
                     1.0e-3f)
            << parameter->getName (100);
    }

    EXPECT_EQ (window.getMain().getSpectrogramContainer().getRuler().isVisible(),
               processor.getParameterState().getParameter ("ruler")->getValue() >= 0.5f);
}

} // namespace
} // namespace mk::orlo::test
