// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SettingsPanel.h"
#include "orlo/parameters/Params.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/Sanitizers.h"

#include <array>

namespace mk::orlo::test
{

/** The panel's sliders and the parameters that they set. */
inline constexpr std::array sliders { std::pair ("speedSlider", Params::id::speed),
                                      std::pair ("maxFreqSlider", Params::id::maxFreq),
                                      std::pair ("minFreqSlider", Params::id::minFreq),
                                      std::pair ("floorSlider", Params::id::floor),
                                      std::pair ("ceilingSlider", Params::id::ceiling) };

/** The settings panel in a window on the screen. Skips the tests if there is no screen, and
    under ThreadSanitizer. */
class SettingsInWindowTest : public SettingsPanelTest
{
protected:
    SettingsInWindowTest()
    {
        if (! Screen::getInstance().isAvailable())
            return;

        window = std::make_unique<Window> (1050, 578);
        editor.setSize (1050, 578);
        window->addAndMakeVisible (editor);

        // The detector's first check of the new window would close a menu that has just been opened.
        editor.getMoveDetector().checkNow();
        pumpPending();
    }

    ~SettingsInWindowTest() override
    {
        if (window != nullptr)
            window->removeChildComponent (&editor);
    }

    void SetUp() override
    {
        if (window == nullptr)
            GTEST_SKIP() << "needs a screen";

        // Everything runs on the message thread, which is too slow under the sanitizer to keep up with the mouse.
        if (hasThreadSanitizer)
            GTEST_SKIP() << "not under ThreadSanitizer";
    }

    /** Clicks on the middle of a component. */
    void clickOn (juce::Component& component, int modifiers = PeerMouse::left)
    {
        PeerMouse (*window).click (component, component.getLocalBounds().getCentre().toFloat(), modifiers);
    }

    std::unique_ptr<Window> window;
};

} // namespace mk::orlo::test
