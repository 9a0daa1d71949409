// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/display/TooltipDisplayComponent.h"

#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Painting.h"
#include "tests/support/TestEditor.h"
#include "tests/support/Window.h"

#include <gtest/gtest.h>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::findBandsOfRows;
using orlo::test::paintComponent;
using orlo::test::paintUnclipped;
using orlo::test::TestEditor;

struct Control final : juce::Component, juce::SettableTooltipClient
{
};

/** A line of help in an editor with a control. */
struct LineInEditor
{
    LineInEditor()
    {
        line.isApplicationActive = [this] { return isActive; };
        editor.addAndMakeVisible (control);
        control.setBounds (0, 0, 100, 100);
        control.addAndMakeVisible (partOfControl);
        partOfControl.setBounds (0, 0, 50, 50);
        editor.addAndMakeVisible (line);
        line.setBounds (0, 450, 900, 50);
        control.setTooltip ("**Freeze** holds the picture");
    }

    TestEditor editor { 909, 500 };
    Control control;
    juce::Component partOfControl;
    TooltipDisplayComponent line;
    bool isActive = true;
};

TEST (TooltipDisplayComponent, ShowsTheTipOfTheControlUnderTheMouse)
{
    LineInEditor test;
    test.line.showTipOf (&test.control);
    EXPECT_EQ (test.line.getTip(), "**Freeze** holds the picture");
    EXPECT_EQ (test.line.getAttributedText().getText(), "Freeze holds the picture");
    EXPECT_EQ (test.line.getTitle(), "Freeze holds the picture");

    test.line.showTipOf (&test.editor);
    EXPECT_EQ (test.line.getTip(), "");
    EXPECT_EQ (test.line.getAttributedText().getText(), "");
}

TEST (TooltipDisplayComponent, OverAPartOfAControlShowsTheControlsTip)
{
    LineInEditor test;
    test.line.showTipOf (&test.partOfControl);
    EXPECT_EQ (test.line.getTip(), "**Freeze** holds the picture");
}

TEST (TooltipDisplayComponent, ANewTipOfTheSameControlIsShown)
{
    LineInEditor test;
    test.line.showTipOf (&test.control);
    test.control.setTooltip ("another");
    test.line.showTipOf (&test.control);
    EXPECT_EQ (test.line.getTip(), "another");
}

TEST (TooltipDisplayComponent, OverAnotherWindowTheLineDoesNotChange)
{
    LineInEditor test;
    test.line.showTipOf (&test.control);

    TestEditor otherEditor { 300, 200 };
    Control otherControl;
    otherControl.setTooltip ("of another plug-in");
    otherEditor.addAndMakeVisible (otherControl);
    test.line.showTipOf (&otherControl);
    EXPECT_EQ (test.line.getTip(), "**Freeze** holds the picture");

    test.line.showTipOf (nullptr);
    EXPECT_EQ (test.line.getTip(), "") << "without a component under the mouse the line is empty";
}

TEST (TooltipDisplayComponent, WithoutAnEditorItsTopmostParentIsItsWindow)
{
    juce::Component window;
    Control control;
    TooltipDisplayComponent line;
    line.isApplicationActive = [] { return true; };
    control.setTooltip ("tip");
    window.addAndMakeVisible (control);
    window.addAndMakeVisible (line);
    line.showTipOf (&control);
    EXPECT_EQ (line.getTip(), "tip");
}

TEST (TooltipDisplayComponent, ShowsNoTipsInTheBackground)
{
    LineInEditor test;
    test.isActive = false;
    test.line.showTipOf (&test.control);
    EXPECT_EQ (test.line.getTip(), "");

    test.isActive = true;
    test.line.showTipOf (&test.control);
    EXPECT_NE (test.line.getTip(), "");

    test.isActive = false;
    test.line.showTipOf (&test.control);
    EXPECT_EQ (test.line.getTip(), "");
}

TEST (TooltipDisplayComponent, QueriesTheSystemOnlyWhenThereIsATip)
{
    LineInEditor test;
    int numQueries = 0;
    test.line.isApplicationActive = [&numQueries] { return ++numQueries > 0; };
    test.line.showTipOf (nullptr);
    test.line.showTipOf (&test.editor);
    EXPECT_EQ (numQueries, 0);
    test.line.showTipOf (&test.control);
    EXPECT_EQ (numQueries, 1);
}

TEST (TooltipDisplayComponent, SurvivesTheDeletionOfTheControlItShows)
{
    LineInEditor test;
    {
        Control shortLived;
        shortLived.setTooltip ("short");
        test.editor.addAndMakeVisible (shortLived);
        test.line.showTipOf (&shortLived);
        EXPECT_EQ (test.line.getTip(), "short");
    }
    test.line.showTipOf (nullptr);
    EXPECT_EQ (test.line.getTip(), "");
}

TEST (TooltipDisplayComponent, HasADefaultTextInItsOwnColour)
{
    LineInEditor test;
    test.line.setColour (colourId::tooltipText, juce::Colours::green);
    test.line.setColour (colourId::tooltipBoldText, juce::Colours::yellow);
    test.line.setColour (colourId::tooltipDefaultText, juce::Colours::blue);
    test.line.setDefaultText ("Drag to measure **nothing bold here**");

    const auto& text = test.line.getAttributedText();
    EXPECT_EQ (text.getText(), "Drag to measure **nothing bold here**") << "only tips are marked up";
    ASSERT_EQ (text.getNumAttributes(), 1);
    EXPECT_EQ (text.getAttribute (0).colour, juce::Colours::blue);

    test.line.showTipOf (&test.control);
    ASSERT_EQ (text.getNumAttributes(), 2);
    EXPECT_EQ (text.getAttribute (0).colour, juce::Colours::yellow);
    EXPECT_EQ (text.getAttribute (1).colour, juce::Colours::green);

    test.line.showTipOf (nullptr);
    EXPECT_EQ (text.getText(), "Drag to measure **nothing bold here**");
}

TEST (TooltipDisplayComponent, HidesItselfWhileEmptyIfAskedTo)
{
    LineInEditor test;
    EXPECT_TRUE (test.line.isVisible());
    test.line.setHideWhenEmpty (true);
    EXPECT_FALSE (test.line.isVisible());
    test.line.showTipOf (&test.control);
    EXPECT_TRUE (test.line.isVisible());
    test.line.showTipOf (nullptr);
    EXPECT_FALSE (test.line.isVisible());
    test.line.setDefaultText ("default");
    EXPECT_TRUE (test.line.isVisible());
}

TEST (TooltipDisplayComponent, IsOpaqueIfItsBackgroundIs)
{
    TooltipDisplayComponent line;
    EXPECT_TRUE (line.isOpaque());
    line.setColour (colourId::tooltipBackground, juce::Colour { 0x80111111 });
    EXPECT_FALSE (line.isOpaque());
    line.setColour (colourId::tooltipBackground, juce::Colours::darkgrey);
    EXPECT_TRUE (line.isOpaque());
}

TEST (TooltipDisplayComponent, TakesNoClicks)
{
    TooltipDisplayComponent line;
    line.setSize (100, 20);
    EXPECT_FALSE (line.hitTest (10, 10));
}

TEST (TooltipDisplayComponent, PaintsItsTextWholeInsideTheLineAtAnySize)
{
    LineInEditor test;
    const juce::Colour ground { 0xff111111 };
    constexpr int margin = 10;

    for (const auto& [width, height] : { std::pair { 40, 15 }, { 100, 15 }, { 400, 25 }, { 1700, 50 }, { 3600, 105 } })
    {
        test.line.setSize (width, height);
        test.line.showTipOf (&test.control);
        const auto image = paintUnclipped (test.line, margin);
        const auto bands = findBandsOfRows (image, ground, { 0, image.getWidth() });
        SCOPED_TRACE (width);
        ASSERT_FALSE (bands.empty());
        EXPECT_GE (bands.front().getStart(), margin);
        EXPECT_LE (bands.back().getEnd(), image.getHeight() - margin);
        EXPECT_TRUE (findBandsOfRows (image, ground, { 0, margin }).empty());
        EXPECT_TRUE (findBandsOfRows (image, ground, { margin + width, image.getWidth() }).empty());
    }
}

TEST (TooltipDisplayComponent, IsSetInTheFaceOfPlainText)
{
    LookAndFeel style;
    LineInEditor test;
    test.editor.setLookAndFeel (&style);
    test.line.showTipOf (&test.control);
    const auto& text = test.line.getAttributedText();
    ASSERT_EQ (text.getNumAttributes(), 2);
    EXPECT_EQ (text.getAttribute (0).font.getTypefacePtr(), style.getFont (LookAndFeel::Face::bold).getTypefacePtr());
    EXPECT_EQ (text.getAttribute (1).font.getTypefacePtr(),
               style.getFont (LookAndFeel::Face::semiBold).getTypefacePtr());
    test.editor.setLookAndFeel (nullptr);
}

TEST (TooltipDisplayComponent, WithoutATextPaintsItsBackgroundOnly)
{
    LineInEditor test;
    const auto image = paintComponent (test.line);
    EXPECT_TRUE (findBandsOfRows (image, juce::Colour { 0xff111111 }, { 0, image.getWidth() }).empty());
}

TEST (TooltipDisplayComponent, FollowsTheRealMouse)
{
    if (! orlo::test::Screen::getInstance().isAvailable())
        GTEST_SKIP() << "needs a screen";

    LineInEditor test;
    orlo::test::Window window { 909, 500 };
    window.addAndMakeVisible (test.editor);

    ASSERT_TRUE (window.moveMouseTo (test.editor, { 500.0f, 300.0f }));
    ASSERT_TRUE (window.moveMouseTo (test.partOfControl, { 10.0f, 10.0f }));
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return test.line.getTip() == "**Freeze** holds the picture"; }));

    ASSERT_TRUE (window.moveMouseTo (test.editor, { 100.0f, 460.0f })) << "the line lets the mouse through";
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return test.line.getTip().isEmpty(); }));
}

} // namespace
} // namespace mk::pluginCore::test
