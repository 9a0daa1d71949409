// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/DisplayTextComponent.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>


namespace mk::pluginCore::test
{
namespace
{

using orlo::test::snapshotOf;
using orlo::test::StyledWindow;

struct TextInWindow
{
    TextInWindow() { window.add (text, { 10, 10, 300, 200 }); }

    StyledWindow<LookAndFeel> window { 1000 };
    /** Sends a key to the text and waits until it has had time to scroll. */
    [[nodiscard]] bool press (int key)
    {
        const auto isUsed = text.keyPressed (juce::KeyPress (key));
        orlo::test::pumpPending();
        return isUsed;
    }

    DisplayTextComponent text;
};

[[nodiscard]] juce::String makeLines (int number)
{
    juce::String lines;

    for (int i = 0; i < number; ++i)
        lines << "- line " << i << "\n";

    return lines;
}

TEST (DisplayTextComponent, ShowsATextThatCannotBeChanged)
{
    TextInWindow test;
    test.text.setText ("one\ntwo");
    const auto& editor = test.text.getTextEditor();
    EXPECT_EQ (editor.getText(), "one\ntwo");
    EXPECT_TRUE (editor.isReadOnly());
    EXPECT_TRUE (editor.isMultiLine());
    EXPECT_FALSE (editor.isCaretVisible());
    EXPECT_FLOAT_EQ (editor.getFont().getHeightInPoints(), 12.0f);
}

TEST (DisplayTextComponent, TakesTheColoursOfTheLook)
{
    TextInWindow test;
    test.text.setText ("");
    const auto picture = snapshotOf (test.text);
    EXPECT_EQ (picture.getPixelAt (100, 100), test.window.style.findColour (colourId::textViewBackground));
    EXPECT_EQ (picture.getPixelAt (0, 0), test.window.style.findColour (colourId::textViewOutline));
}

TEST (DisplayTextComponent, ScrollsALongTextByKeys)
{
    TextInWindow test;
    test.text.setText (makeLines (200));
    EXPECT_EQ (test.text.getScrollPosition(), 0);

    EXPECT_TRUE (test.press (juce::KeyPress::downKey));
    const auto afterOneLine = test.text.getScrollPosition();
    EXPECT_GT (afterOneLine, 0);

    EXPECT_TRUE (test.press (juce::KeyPress::pageDownKey));
    EXPECT_GT (test.text.getScrollPosition(), afterOneLine + 100);

    EXPECT_TRUE (test.press (juce::KeyPress::endKey));
    EXPECT_GT (test.text.getScrollPosition(), 2000);

    EXPECT_TRUE (test.press (juce::KeyPress::homeKey));
    EXPECT_EQ (test.text.getScrollPosition(), 0);
    EXPECT_FALSE (test.press (juce::KeyPress::escapeKey));
}

TEST (DisplayTextComponent, ShowsANewTextFromItsTop)
{
    TextInWindow test;
    test.text.setText (makeLines (200));
    EXPECT_TRUE (test.press (juce::KeyPress::endKey));
    test.text.setText (makeLines (100));
    EXPECT_EQ (test.text.getScrollPosition(), 0);
}

TEST (DisplayTextComponent, ShowsTheBeginningOfATextThatIsTooLong)
{
    TextInWindow test;
    const auto line = juce::String ("a line of a text\n");
    test.text.setText (juce::String::repeatedString (line, DisplayTextComponent::maxCharacters));
    const auto shown = test.text.getTextEditor().getText();
    EXPECT_EQ (shown.length(), DisplayTextComponent::maxCharacters + 3);
    EXPECT_TRUE (shown.startsWith (line + line));
    EXPECT_TRUE (shown.endsWith ("..."));

    const auto whole = juce::String::repeatedString ("1234567\n", DisplayTextComponent::maxCharacters / 8);
    test.text.setText (whole);
    EXPECT_EQ (test.text.getTextEditor().getText(), whole);
}

TEST (DisplayTextComponent, BreaksAWordThatIsTooLongToLayOutInTime)
{
    TextInWindow test;
    test.text.setText ("a " + juce::String::repeatedString ("x", 2 * DisplayTextComponent::maxWordLength + 1) + " b");
    const auto longest = juce::String::repeatedString ("x", DisplayTextComponent::maxWordLength);
    EXPECT_EQ (test.text.getTextEditor().getText(), "a " + longest + "\n" + longest + "\nx b");

    test.text.setText (juce::String::repeatedString ("x", 1024 * 1024));
    const auto lines = juce::StringArray::fromLines (test.text.getTextEditor().getText());
    EXPECT_GT (lines.size(), 100);

    for (const auto& line : lines)
        EXPECT_LE (line.length(), DisplayTextComponent::maxWordLength + 3) << "the last line ends in dots";
}

TEST (DisplayTextComponent, AShortTextHasNothingToScroll)
{
    TextInWindow test;
    test.text.setText ("short");
    EXPECT_FALSE (test.press (juce::KeyPress::downKey));
}

} // namespace
} // namespace mk::pluginCore::test
