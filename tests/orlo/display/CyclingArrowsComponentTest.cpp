// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/CyclingArrowsComponent.h"
#include "tests/support/PeerMouse.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{

TEST (CyclingArrowsComponentTest, TheArrowsShareTheWidth)
{
    CyclingArrowsComponent arrows;

    for (const auto width : { 0, 1, 73, 100 })
    {
        arrows.setSize (width, 44);
        EXPECT_EQ (arrows.getPreviousButton().getBounds(), juce::Rectangle<int> (0, 0, width / 2, 44));
        EXPECT_EQ (arrows.getNextButton().getBounds(), juce::Rectangle<int> (width - width / 2, 0, width / 2, 44));
    }
}

TEST (CyclingArrowsComponentTest, EachHasANameAndAHelpText)
{
    CyclingArrowsComponent arrows;
    EXPECT_EQ (arrows.getPreviousButton().getTitle(), "Previous colour palette");
    EXPECT_EQ (arrows.getNextButton().getTooltip(), "Next colour palette");
    EXPECT_TRUE (arrows.getNextButton().getWantsKeyboardFocus());
}

TEST (CyclingArrowsComponentTest, TheLeftButtonStepsAndTheRightOneDoesNot)
{
    if (! test::Screen::getInstance().isAvailable())
        GTEST_SKIP() << "no display";

    test::Window window (200, 100);
    test::PeerMouse mouse (window);
    CyclingArrowsComponent arrows;
    window.addAndMakeVisible (arrows);
    arrows.setBounds (50, 20, 74, 44);
    mouse.click (arrows.getNextButton(), { 18.0f, 22.0f }); // no callback is set yet

    juce::String steps;
    arrows.onPrevious = [&steps] { steps += "<"; };
    arrows.onNext = [&steps] { steps += ">"; };

    mouse.click (arrows.getPreviousButton(), { 18.0f, 22.0f });
    mouse.click (arrows.getNextButton(), { 18.0f, 22.0f });
    mouse.click (arrows.getNextButton(), { 18.0f, 22.0f }, test::PeerMouse::right);
    mouse.click (arrows.getNextButton(), { 18.0f, 22.0f }, test::PeerMouse::left | test::PeerMouse::ctrl);
    EXPECT_EQ (steps, "<>");
}

} // namespace
} // namespace mk::orlo
