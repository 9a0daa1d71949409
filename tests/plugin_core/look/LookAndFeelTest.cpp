// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/GenericComponentAnimator.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/Icon.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::distance;
using orlo::test::drawnImage;
using orlo::test::findInk;
using orlo::test::snapshotOf;

[[nodiscard]] juce::Image drawScrollBar (LookAndFeel& style, juce::ScrollBar& bar, bool isOver)
{
    return drawnImage (
        16, 100, [&] (juce::Graphics& g) { style.drawScrollbar (g, bar, 0, 0, 16, 100, true, 20, 40, isOver, false); });
}

TEST (LookAndFeelTest, AScrollBarShowsItsThumbAndNothingElse)
{
    LookAndFeel style;
    juce::ScrollBar bar (true);
    bar.setLookAndFeel (&style);
    const auto image = drawScrollBar (style, bar, false);

    EXPECT_EQ (findInk (image), juce::Rectangle<int> (2, 22, 12, 36));
    EXPECT_EQ (image.getPixelAt (8, 40).getAlpha(), 128);
    EXPECT_LT (image.getPixelAt (2, 22).getAlpha(), 40) << "round corners";
    bar.setLookAndFeel (nullptr);
}

TEST (LookAndFeelTest, AScrollBarsThumbBrightensUnderTheMouse)
{
    LookAndFeel style;
    juce::ScrollBar bar (true);
    bar.setLookAndFeel (&style);
    const auto plain = drawScrollBar (style, bar, false).getPixelAt (8, 40);
    const auto lit = drawScrollBar (style, bar, true).getPixelAt (8, 40);

    EXPECT_EQ (lit.getAlpha(), 204);
    EXPECT_GT (lit.getBrightness(), plain.getBrightness());
    bar.setLookAndFeel (nullptr);
}

//==============================================================================
class FileRowTest : public testing::Test
{
protected:
    [[nodiscard]] juce::Image row (const juce::String& name, bool isDirectory, bool isSelected, int width = 300)
    {
        return drawnImage (width,
                           24,
                           [&] (juce::Graphics& g)
                           {
                               window.style.drawFileBrowserRow (
                                   g, width, 24, {}, name, nullptr, "12 KB", "1 Jan", isDirectory, isSelected, 0, list);
                           });
    }

    FileRowTest() { window.add (list, { 0, 0, 300, 100 }); }

    orlo::test::StyledWindow<LookAndFeel> window { 909 };
    juce::TimeSliceThread thread { "files" };
    juce::DirectoryContentsList contents { nullptr, thread };
    juce::FileListComponent list { contents };
};

TEST_F (FileRowTest, ARowHasAnIconAndThenItsName)
{
    EXPECT_FALSE (findInk (row ({}, true, false), { 0, 0, 34, 24 }).isEmpty());
    EXPECT_TRUE (findInk (row ({}, true, false), { 34, 0, 266, 24 }).isEmpty());
    EXPECT_FALSE (findInk (row ("Name", true, false), { 34, 0, 266, 24 }).isEmpty());
}

TEST_F (FileRowTest, FoldersLoseTheirIconIfTheListAsksForIt)
{
    list.getProperties().set (styleProperty::noFolderIcon, true);
    EXPECT_TRUE (findInk (row ({}, true, false)).isEmpty());
    EXPECT_FALSE (findInk (row ({}, false, false)).isEmpty());
}

TEST_F (FileRowTest, ASelectedRowIsFilledWithTheListsHighlight)
{
    list.setColour (juce::DirectoryContentsDisplayComponent::highlightColourId, juce::Colours::teal);
    EXPECT_EQ (row ("Name", false, true).getPixelAt (1, 1), juce::Colours::teal);
    EXPECT_EQ (row ("Name", false, false).getPixelAt (1, 1).getAlpha(), 0);
}

TEST_F (FileRowTest, WideRowsOfFilesShowSizeAndTime)
{
    EXPECT_TRUE (findInk (row ("Name", false, false, 300), { 150, 0, 150, 24 }).isEmpty());
    EXPECT_FALSE (findInk (row ("Name", false, false, 600), { 300, 0, 300, 24 }).isEmpty());
    EXPECT_TRUE (findInk (row ("Name", true, false, 600), { 300, 0, 300, 24 }).isEmpty());
}

//==============================================================================
TEST (FilledPathButtonTest, ThePathIsFilledInTheColourOfTheState)
{
    orlo::test::StyledWindow<LookAndFeel> window (1818);
    juce::Path square;
    square.addRectangle (0.0f, 0.0f, 1.0f, 1.0f);
    FilledPathButton button ("button", square);
    window.add (button, { 0, 0, 60, 40 });
    button.setColour (colourId::pathButtonBackgroundOver, juce::Colours::transparentBlack);
    button.setColour (colourId::pathButtonBackgroundDown, juce::Colours::transparentBlack);

    const std::pair<juce::Button::ButtonState, int> states[] {
        { juce::Button::buttonNormal, colourId::pathButtonPath },
        { juce::Button::buttonOver, colourId::pathButtonPathOver },
        { juce::Button::buttonDown, colourId::pathButtonPathDown }
    };

    for (const auto& [state, id] : states)
    {
        button.setState (state);
        const auto image = snapshotOf (button);
        EXPECT_EQ (image.getPixelAt (30, 20), window.style.findColour (id)) << std::hex << id;
        EXPECT_TRUE (button.getLocalBounds().reduced (5).contains (findInk (image)));
    }
}

/** A path button with its mouse animation fixed at a given time. */
struct AnimatedPathButton final : public FilledPathButton, public GenericComponentAnimator
{
    using FilledPathButton::FilledPathButton;

    [[nodiscard]] Times getMouseAnimationTimes() const noexcept override { return times; }

    Times times;
};

TEST (FilledPathButtonTest, ATurningButtonIsTurnedByItsAnimation)
{
    orlo::test::StyledWindow<LookAndFeel> window (1818);
    juce::Path upright;
    upright.addRectangle (4.0f, 0.0f, 2.0f, 10.0f);
    AnimatedPathButton button ("button", upright);
    window.add (button, { 0, 0, 60, 60 });

    using State = GenericComponentAnimator::State;
    button.times.state = State::entered;
    button.times.elapsed[size_t (State::entered)] = 90;
    button.times.durations[size_t (State::entered)] = 360;

    const auto isLying = [&button]
    {
        const auto ink = findInk (snapshotOf (button));
        return ink.getWidth() > ink.getHeight();
    };

    EXPECT_FALSE (isLying());
    button.getProperties().set (styleProperty::rotate, true);
    EXPECT_TRUE (isLying()) << "a quarter of the time is a quarter of a turn";
    button.getProperties().set (styleProperty::animateOnMouseDown, true);
    EXPECT_FALSE (isLying()) << "now it turns at a press, not when the mouse enters";
    button.times.state = State::pressed;
    button.times.elapsed[size_t (State::pressed)] = 270;
    button.times.durations[size_t (State::pressed)] = 360;
    EXPECT_TRUE (isLying());
}

//==============================================================================
TEST (ConfirmDialogTest, TheChildrenLieInsideTheDialogAndDoNotOverlap)
{
    LookAndFeel style;

    for (const auto dialog : { juce::Rectangle<int> (0, 0, 400, 200), juce::Rectangle<int> (30, 20, 150, 90) })
    {
        juce::Component question, confirm, cancel;
        style.layOutConfirmDialog (dialog, question, confirm, cancel);

        for (const auto* child : { &question, &confirm, &cancel })
        {
            EXPECT_TRUE (dialog.contains (child->getBounds())) << child->getBounds().toString();
            EXPECT_FALSE (child->getBounds().isEmpty());
        }

        EXPECT_FALSE (confirm.getBounds().intersects (cancel.getBounds()));
        EXPECT_LE (question.getBottom(), confirm.getY());
        EXPECT_NEAR (confirm.getX() - dialog.getX(), dialog.getRight() - cancel.getRight(), 1);
        EXPECT_EQ (confirm.getWidth(), juce::roundToInt (float (dialog.getWidth()) / 3.0f));
    }
}

TEST (ConfirmDialogTest, ReturnConfirmsAndEscapeCancels)
{
    ConfirmDialogComponent dialog ("Sure?", "Yes", "No");
    juce::String answers;
    dialog.onConfirm = [&answers] { answers << "yes "; };
    dialog.onCancel = [&answers] { answers << "no "; };

    EXPECT_TRUE (dialog.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_TRUE (dialog.keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_FALSE (dialog.keyPressed (juce::KeyPress ('x')));
    EXPECT_EQ (answers, "yes no ");
}

TEST (ConfirmDialogTest, ItIsLaidOutByTheStyle)
{
    orlo::test::StyledWindow<LookAndFeel> window (909);
    ConfirmDialogComponent dialog ("Sure?", "Yes", "No");
    window.add (dialog, { 100, 100, 400, 200 });

    ASSERT_EQ (dialog.getNumChildComponents(), 3);

    for (const auto* child : dialog.getChildren())
        EXPECT_FALSE (child->getBounds().isEmpty());

    EXPECT_EQ (snapshotOf (dialog).getPixelAt (0, 0).getARGB(), 0xFF111111u);
}
} // namespace
} // namespace mk::pluginCore
