// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/SettingsComponent.h"

#include "SettingsDesign.h"
#include "SettingsPanel.h"
#include "orlo/parameters/Params.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/IconColour.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo::test
{
namespace
{
namespace styleProperty = pluginCore::styleProperty;

/** The help text of a control while the mouse is over it. */
struct HelpText
{
    const char* id;
    const char* text;
};

constexpr std::array helpTexts {
    HelpText { "presetsButton", "Open the preset menu to save, load, or reset settings" },
    HelpText { "fftSizeBox", "Sets the analysis window length" },
    HelpText { "hiDPILabel", "Enables sharper rendering on high-resolution displays" },
    HelpText { "autoFreezeToggle", "Auto-Pause: Pauses the display automatically when the DAW transport stops" },
    HelpText { "scaleBox", "Choose how frequencies are distributed vertically (Linear, Log, Mel, Bark, ERB)" },
    HelpText { "keyboardToggle", "Show or hide the piano keyboard" },
    HelpText { "rulerToggle", "Show or hide the frequency ruler" },
    HelpText { "speedSlider", "Controls how fast the spectrogram scrolls" },
    HelpText { "maxFreqSlider", "Set the highest frequency shown in the spectrogram" },
    HelpText { "minFreqSlider", "Set the lowest frequency shown in the spectrogram" },
    HelpText { "colourBox", "Select a colour palette for the spectrogram" },
    HelpText { "colourPreview", "Select a colour palette for the spectrogram" },
    HelpText { "floorSlider", "Adjust the lower amplitude limit to reveal quieter details" },
    HelpText { "ceilingSlider", "Adjust the upper amplitude limit for the brightest levels" },
};

using SettingsComponentTest = SettingsPanelTest;

//==============================================================================
TEST_F (SettingsComponentTest, PutsEveryChildIntoItsPlace)
{
    EXPECT_EQ (panel.getNumChildComponents(), int (settingsItems.size()));

    for (size_t i = 0; i < settingsSizes.size(); ++i)
    {
        panel.setSize (settingsSizes[i].x, settingsSizes[i].y);

        for (const auto& item : settingsItems)
            EXPECT_EQ (child (item.id).getBounds(), item.bounds[i]) << item.id << " at " << settingsSizes[i].x;
    }

    for (const auto side : { 0, 1, 5, 20 })
        panel.setSize (side, side);
}

TEST_F (SettingsComponentTest, ShowsTheResolutionSwitchOnlyOnHighDensityDisplays)
{
    EXPECT_FALSE (child ("hiDPILabel").isVisible());
    panel.setOnRetinaDisplay (true);
    EXPECT_TRUE (child ("hiDPILabel").isVisible());
    panel.setOnRetinaDisplay (false);
    EXPECT_FALSE (child ("hiDPILabel").isVisible());

    // The window's move detector reports the display's density.
    static_cast<pluginCore::PluginMoveDetector::Listener&> (panel).retinaStateChanged (editor.getMoveDetector(), true);
    EXPECT_TRUE (child ("hiDPILabel").isVisible());
}

TEST_F (SettingsComponentTest, ShowsAllRowsInEveryMode)
{
    for (const auto* const id : { Params::id::mode, Params::id::drawMode })
    {
        for (const auto value : { 0.0f, 1.0f })
        {
            setNormalised (id, value);
            pumpPending();

            for (const auto& item : settingsItems)
                EXPECT_EQ (child (item.id).isVisible(), juce::String (item.id) != "hiDPILabel") << item.id;
        }
    }
}

TEST_F (SettingsComponentTest, SetsItsSlidersUpAsFlatBars)
{
    for (const auto* const id : { "speedSlider", "maxFreqSlider", "minFreqSlider", "floorSlider", "ceilingSlider" })
    {
        const auto isGain = juce::StringArray { "floorSlider", "ceilingSlider" }.contains (id);
        EXPECT_TRUE (bool (child (id).getProperties()[styleProperty::buttonSlider])) << id;
        EXPECT_EQ (bool (child (id).getProperties()[styleProperty::reversed]), isGain) << id;
        EXPECT_EQ (slider (id).getMouseDragSensitivity(), 125) << id;
    }

    for (const auto* const id : { "fftSizeBox", "scaleBox" })
        EXPECT_EQ (int (inner<juce::ComboBox> (id).getProperties()[styleProperty::numCol]), 2) << id;
}

TEST_F (SettingsComponentTest, GivesBarsAndBoxesTheirClassOfText)
{
    for (auto* const control : { &child ("modeBar"),
                                 &child ("drawModeBar"),
                                 static_cast<juce::Component*> (&inner<juce::ComboBox> ("fftSizeBox")),
                                 static_cast<juce::Component*> (&inner<juce::ComboBox> ("scaleBox")),
                                 static_cast<juce::Component*> (&inner<juce::ComboBox> ("colourBox")) })
    {
        EXPECT_EQ (int (control->getProperties()[styleProperty::cat]), 2) << control->getName();
        EXPECT_EQ (double (control->getProperties()[styleProperty::fontScale]), 1.0) << control->getName();
    }

    EXPECT_EQ (int (child ("title").getProperties()[styleProperty::cat]), 0);
    EXPECT_EQ (int (child ("displayHeading").getProperties()[styleProperty::cat]), 1);
    EXPECT_EQ (int (child ("speedLabel").getProperties()[styleProperty::cat]), 2);
    EXPECT_FALSE (inner<juce::ComboBox> ("colourBox").getProperties().contains (styleProperty::numCol))
        << "the previews are in one column";
}

TEST_F (SettingsComponentTest, GivesThePresetMenusButtonABackgroundAndAnIcon)
{
    auto& button = dynamic_cast<juce::DrawableButton&> (child ("presetsButton"));
    EXPECT_TRUE (bool (button.getProperties()[styleProperty::bg]));

    const auto* const icon = button.getNormalImage();
    ASSERT_NE (icon, nullptr);
    const auto image = drawnImage (96,
                                   96,
                                   [icon] (juce::Graphics& g) {
                                       icon->drawWithin (g, { 96.0f, 96.0f }, juce::RectanglePlacement::centred, 1.0f);
                                   });
    int numOpaque = 0;

    for (int y = 0; y < 96; ++y)
    {
        for (int x = 0; x < 96; ++x)
        {
            if (const auto pixel = image.getPixelAt (x, y); pixel.getAlpha() == 255)
            {
                EXPECT_EQ (pixel, juce::Colour (0xFFEEEEEE));
                ++numOpaque;
            }
        }
    }

    EXPECT_GT (numOpaque, 100);
}

//==============================================================================
TEST_F (SettingsComponentTest, GivesEveryControlItsHelpText)
{
    panel.setOnRetinaDisplay (true);

    for (const auto& help : helpTexts)
    {
        bool found = false;

        forEachBelow (child (help.id),
                      [&] (juce::Component& component)
                      {
                          // The help line first asks the component under the mouse, so a part without a text of its
                          // own would leave the line empty.
                          if (auto* const client = dynamic_cast<juce::TooltipClient*> (&component))
                          {
                              if (component.isVisible() && dynamic_cast<juce::CaretComponent*> (&component) == nullptr)
                              {
                                  EXPECT_EQ (client->getTooltip(), juce::translate (help.text)) << help.id;
                                  found = true;
                              }
                          }
                      });

        EXPECT_TRUE (found) << help.id;
    }

    const auto expectTips = [this] (const char* id, const char* first, const char* second)
    {
        auto& bar = dynamic_cast<ButtonBarComponent&> (child (id));
        ASSERT_EQ (bar.getNumButtons(), 2);
        EXPECT_EQ (bar.getButton (0).getTooltip(), juce::translate (first));
        EXPECT_EQ (bar.getButton (1).getTooltip(), juce::translate (second));
    };

    expectTips ("modeBar", "Standard FFT", "Sharper, more precise analysis");
    expectTips ("drawModeBar",
                "Show a looping spectrogram that updates in place",
                "Scroll the spectrogram continuously from right to left");
}

TEST_F (SettingsComponentTest, ToggleIconsHaveTheAccentColourWhileTheyAreOn)
{
    for (const auto* const id : { "autoFreezeToggle", "keyboardToggle", "rulerToggle" })
    {
        auto& button = inner<juce::DrawableButton> (id);

        for (const auto isOn : { false, true })
        {
            button.setToggleState (isOn, juce::sendNotificationSync);
            EXPECT_EQ (getIconColour (button),
                       juce::Colour (isOn ? pluginCore::palette::accent : pluginCore::palette::text))
                << id;
        }
    }
}

TEST_F (SettingsComponentTest, KeepsTheHelpOfAToggleInBothStates)
{
    for (const auto* const id : { "autoFreezeToggle", "keyboardToggle", "rulerToggle" })
    {
        auto& button = inner<juce::Button> (id);
        const auto tip = button.getTooltip();
        button.setToggleState (true, juce::sendNotificationSync);
        EXPECT_EQ (button.getTooltip(), tip) << id;
        EXPECT_TRUE (button.getToggleState()) << id;
    }

    EXPECT_FLOAT_EQ (getValue (Params::id::autoFreeze), 1.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::keyboard), 1.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::ruler), 1.0f);
}

//==============================================================================
TEST_F (SettingsComponentTest, ShowsTheColourMapAfterEveryKindOfChange)
{
    std::vector<int> told;
    panel.onColourMapChanged = [&told] (int index) { told.push_back (index); };

    const auto& preview = dynamic_cast<ColourMapPreviewComponent&> (child ("colourPreview"));
    setValue (Params::id::colourMap, 7.0f);
    EXPECT_EQ (panel.getColourMapIndex(), 7);
    EXPECT_EQ (preview.getMapIndex(), 7);

    std::thread ([this] { setValue (Params::id::colourMap, 45.0f); }).join();
    ASSERT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 45; }));

    inner<juce::ComboBox> ("colourBox").setSelectedId (3, juce::sendNotificationSync);
    EXPECT_EQ (panel.getColourMapIndex(), 2);
    EXPECT_EQ (preview.getMapIndex(), 2);
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 2.0f);

    // The reserved choices have no map.
    setValue (Params::id::colourMap, 46.0f);
    EXPECT_EQ (panel.getColourMapIndex(), 0);
    setValue (Params::id::colourMap, 127.0f);
    EXPECT_EQ (panel.getColourMapIndex(), 0);
    EXPECT_EQ (told, (std::vector<int> { 7, 45, 2, 0, 0 }));
}

TEST_F (SettingsComponentTest, StepsThroughTheColourMapsAndWrapsAround)
{
    auto& arrows = dynamic_cast<CyclingArrowsComponent&> (child ("arrows"));
    arrows.getPreviousButton().onClick();
    EXPECT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 45; }));
    arrows.getNextButton().onClick();
    EXPECT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 0; }));
    arrows.getNextButton().onClick();
    EXPECT_TRUE (pumpUntil ([this] { return panel.getColourMapIndex() == 1; }));
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 1.0f);
}

TEST_F (SettingsComponentTest, RemembersTheColourMapChosenLast)
{
    inner<juce::ComboBox> ("colourBox").setSelectedId (18, juce::sendNotificationSync);
    EXPECT_EQ (int (settings.getSettings()[pluginCore::SettingsIds::preferedMap]), 18);

    dynamic_cast<CyclingArrowsComponent&> (child ("arrows")).getNextButton().onClick();
    EXPECT_TRUE (
        pumpUntil ([this] { return int (settings.getSettings()[pluginCore::SettingsIds::preferedMap]) == 19; }));
}

//==============================================================================
TEST_F (SettingsComponentTest, OpensAndClosesFromTheSideBar)
{
    auto& sideBar = editor.getMainComponent().getSideBar();
    EXPECT_TRUE (panel.isVisible());
    EXPECT_EQ (panel.getWidth(), 418);
    sideBar.onSettingsToggled (false);
    EXPECT_FALSE (panel.isVisible());
    sideBar.onSettingsToggled (true);
    EXPECT_TRUE (panel.isVisible());
}

TEST_F (SettingsComponentTest, ReappearsWithTheStandardView)
{
    auto& main = editor.getMainComponent();
    main.setSettingsWanted (true);
    EXPECT_TRUE (panel.isVisible());
    EXPECT_TRUE (main.getSideBar().isVisible());

    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (pumpUntil ([&] { return ! panel.isVisible(); }));
    EXPECT_FALSE (main.getSideBar().isVisible());

    processor.getUIView().cleanViewMode = false;
    EXPECT_TRUE (pumpUntil ([&] { return panel.isVisible() && main.getSideBar().isVisible(); }));
}
} // namespace
} // namespace mk::orlo::test
