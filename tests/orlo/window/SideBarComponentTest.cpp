// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/SideBarComponent.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/style/OrloColours.h"
#include "orlo/window/SideBarLayout.h"
#include "plugin_core/style/Palette.h"
#include "tests/support/IconColour.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Mouse.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/Transport.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
class SideBarComponentTest : public testing::Test
{
protected:
    SideBarComponentTest()
    {
        window.add (sideBar, { 0, 0, 90, 1000 });
        sideBar.onSettingsToggled = [this] (bool isOpen) { events << (isOpen ? "open " : "closed "); };
        sideBar.onAboutClicked = [this] { events << "about "; };
        sideBar.onExportClicked = [this] { events << "export "; };
    }

    /** The button with the given name, at any depth. */
    [[nodiscard]] juce::DrawableButton& getButton (const juce::String& name)
    {
        auto* const button = findButton (sideBar, name);
        jassert (button != nullptr);
        return *button;
    }

    static void click (juce::Component& button, juce::ModifierKeys modifiers = juce::ModifierKeys::leftButtonModifier)
    {
        const auto centre = button.getLocalBounds().getCentre().toFloat();
        button.mouseDown (makeMouseEvent (button, centre, modifiers));
        button.mouseUp (makeMouseEvent (button, centre, modifiers));
    }

    /** Prepares the processor and resumes its analysis, so that the audio callback updates the pause state. */
    void prepare()
    {
        processor.setRateAndBufferSizeDetails (44100.0, 64);
        processor.prepareToPlay (44100.0, 64);
        processor.setAnalysisSuspended (false);
    }

    void setOn (const juce::String& id, bool isOn)
    {
        processor.getParameterState().getParameter (id)->setValueNotifyingHost (isOn ? 1.0f : 0.0f);
    }

    AudioPluginAudioProcessor processor;
    StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    SideBarComponent sideBar { processor };
    juce::String events;

private:
    [[nodiscard]] static juce::DrawableButton* findButton (juce::Component& parent, const juce::String& name)
    {
        for (auto* const child : parent.getChildren())
        {
            if (auto* const button = dynamic_cast<juce::DrawableButton*> (child);
                button != nullptr && button->getName() == name)
                return button;

            if (auto* const found = findButton (*child, name))
                return found;
        }

        return nullptr;
    }
};

//==============================================================================
TEST_F (SideBarComponentTest, PutsItsButtonsAtTheirPlacesInTheLayout)
{
    const auto layout = SideBarLayout::forSize (90, 1000);
    const auto boundsOf = [this] (const char* name)
    { return sideBar.getLocalArea (&getButton (name), getButton (name).getLocalBounds()); };

    EXPECT_EQ (boundsOf ("settings"), layout.settings);
    EXPECT_EQ (boundsOf ("freeze"), layout.freeze);
    EXPECT_EQ (boundsOf ("export"), layout.exportPicture);
    EXPECT_EQ (boundsOf ("about"), layout.about);
}

TEST_F (SideBarComponentTest, OpensAndClosesTheSettings)
{
    click (getButton ("settings"));
    EXPECT_EQ (events, "open ");
    click (getButton ("settings"));
    EXPECT_EQ (events, "open closed ");
}

TEST_F (SideBarComponentTest, TheFreezeIconHasTheAccentColourWhileItIsOn)
{
    auto& button = getButton ("freeze");
    EXPECT_EQ (getIconColour (button), juce::Colour (pluginCore::palette::text));
    setOn (Params::id::freeze, true);
    EXPECT_TRUE (pumpUntil ([&] { return getIconColour (button) == juce::Colour (pluginCore::palette::accent); }));
    setOn (Params::id::freeze, false);
    EXPECT_TRUE (pumpUntil ([&] { return getIconColour (button) == juce::Colour (pluginCore::palette::text); }));
}

TEST_F (SideBarComponentTest, ShrinksTheSettingsIconWhileThePanelIsOpen)
{
    auto& button = getButton ("settings");
    const auto closed = button.getImageBounds();
    EXPECT_EQ (closed, button.getLocalBounds().reduced (3).toFloat());

    click (button);
    EXPECT_EQ (button.getImageBounds(), button.getLocalBounds().reduced (7).toFloat());
    click (button);
    EXPECT_EQ (button.getImageBounds(), closed);

    EXPECT_EQ (SideBarComponent::getSettingsIndent (true, 60), 7);
    EXPECT_EQ (SideBarComponent::getSettingsIndent (true, 100), 11);
    EXPECT_EQ (SideBarComponent::getSettingsIndent (false, 100), 3);
}

TEST_F (SideBarComponentTest, KeepsTheShrunkIconInProportionWhenTheWindowGrows)
{
    click (getButton ("settings"));
    sideBar.setSize (180, 2000);
    auto& button = getButton ("settings");
    EXPECT_EQ (button.getImageBounds(), button.getLocalBounds().reduced (13).toFloat());
}

TEST_F (SideBarComponentTest, OpensTheAboutPage)
{
    click (getButton ("about"));
    EXPECT_EQ (events, "about ");
}

TEST_F (SideBarComponentTest, RightClicksAndCtrlClicksDoNothing)
{
    for (const auto* const name : { "settings", "freeze", "export", "about" })
    {
        click (getButton (name), juce::ModifierKeys::rightButtonModifier);
        click (getButton (name), juce::ModifierKeys::leftButtonModifier | juce::ModifierKeys::ctrlModifier);
    }

    EXPECT_EQ (events, "");
    EXPECT_FLOAT_EQ (processor.getParameterState().getParameter (Params::id::freeze)->getValue(), 0.0f);
}

TEST_F (SideBarComponentTest, WithoutCallbacksClicksAreHarmless)
{
    sideBar.onSettingsToggled = nullptr;
    sideBar.onAboutClicked = nullptr;
    sideBar.onExportClicked = nullptr;

    for (const auto* const name : { "settings", "export", "about" })
        click (getButton (name));

    EXPECT_EQ (events, "");
}

//==============================================================================
TEST_F (SideBarComponentTest, OffersTheExportOnlyWhileThePictureIsFrozen)
{
    auto& button = getButton ("export");
    EXPECT_FALSE (button.isVisible());

    setOn (Params::id::freeze, true);
    ASSERT_TRUE (pumpUntil ([&] { return button.isVisible(); }));
    click (button);
    EXPECT_EQ (events, "export ");

    setOn (Params::id::freeze, false);
    EXPECT_TRUE (pumpUntil ([&] { return ! button.isVisible(); }));
}

TEST_F (SideBarComponentTest, DimsTheFreezeIconInAnAutomaticPause)
{
    auto& freeze = getButton ("freeze");
    EXPECT_FLOAT_EQ (freeze.getAlpha(), 1.0f);

    prepare();
    setOn (Params::id::autoFreeze, true);
    runBlock (processor, false);
    ASSERT_TRUE (processor.isAutoPaused());
    EXPECT_TRUE (pumpUntil ([&] { return freeze.getAlpha() < 0.9f; }));
    EXPECT_NEAR (freeze.getAlpha(), 0.7f, 1.0f / 255.0f);
    EXPECT_TRUE (getButton ("export").isVisible());

    setOn (Params::id::freeze, true);
    EXPECT_TRUE (pumpUntil ([&] { return juce::approximatelyEqual (freeze.getAlpha(), 1.0f); }));

    setOn (Params::id::freeze, false);
    EXPECT_TRUE (pumpUntil ([&] { return freeze.getAlpha() < 0.9f; }));

    runBlock (processor, true);
    EXPECT_TRUE (pumpUntil ([&] { return juce::approximatelyEqual (freeze.getAlpha(), 1.0f); }));
    EXPECT_FALSE (getButton ("export").isVisible());
}

TEST_F (SideBarComponentTest, FreezesAndShowsWhatAClickWouldDo)
{
    auto& freeze = getButton ("freeze");
    EXPECT_EQ (freeze.getTooltip(), juce::translate ("Freeze"));

    click (freeze);
    EXPECT_FLOAT_EQ (processor.getParameterState().getParameter (Params::id::freeze)->getValue(), 1.0f);
    EXPECT_EQ (freeze.getTooltip(), juce::translate ("Unfreeze"));

    click (freeze);
    EXPECT_FLOAT_EQ (processor.getParameterState().getParameter (Params::id::freeze)->getValue(), 0.0f);
    EXPECT_EQ (freeze.getTooltip(), juce::translate ("Freeze"));
}

TEST_F (SideBarComponentTest, GivesEveryButtonANameAndAHelpText)
{
    for (const auto* const name : { "settings", "freeze", "export", "about" })
    {
        EXPECT_TRUE (getButton (name).getTitle().isNotEmpty()) << name;
        EXPECT_TRUE (getButton (name).getTooltip().isNotEmpty()) << name;
    }

    EXPECT_EQ (getButton ("settings").getTooltip(), juce::translate ("Show or hide settings panel"));
    EXPECT_EQ (getButton ("export").getTooltip(), juce::translate ("Export as PNG"));
}

//==============================================================================
TEST_F (SideBarComponentTest, IsPaintedWithALineAtItsRightEdge)
{
    sideBar.setBounds (0, 0, 20, 30);
    const auto picture = drawnImage (20, 30, [this] (juce::Graphics& g) { sideBar.paint (g); });

    for (int y = 0; y < 30; ++y)
    {
        EXPECT_EQ (picture.getPixelAt (0, y), window.style.findColour (colourId::sideBarBackground));
        EXPECT_EQ (picture.getPixelAt (18, y), window.style.findColour (colourId::sideBarBackground));
        EXPECT_EQ (picture.getPixelAt (19, y), juce::Colour (0xff1a1a1a));
    }
}
} // namespace
} // namespace mk::orlo::test
