// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/SliderLabelComp.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
/** A slider that notes what reaches it. */
struct NotingSlider final : public juce::Slider
{
    using juce::Slider::Slider;

    void mouseEnter (const juce::MouseEvent& e) override { note ("enter", e); }
    void mouseExit (const juce::MouseEvent& e) override { note ("exit", e); }
    void mouseMove (const juce::MouseEvent& e) override { note ("move", e); }
    void mouseDown (const juce::MouseEvent& e) override { note ("down", e); }
    void mouseDrag (const juce::MouseEvent& e) override { note ("drag", e); }
    void mouseUp (const juce::MouseEvent& e) override { note ("up", e); }
    void mouseDoubleClick (const juce::MouseEvent& e) override { note ("double", e); }
    void mouseWheelMove (const juce::MouseEvent& e, const juce::MouseWheelDetails&) override { note ("wheel", e); }

    void note (const char* name, const juce::MouseEvent& e)
    {
        notes << name << " ";
        position = e.getPosition();
        EXPECT_EQ (e.eventComponent, this);
    }

    juce::String notes;
    juce::Point<int> position;
};

class SliderTextBoxMouseTest : public testing::Test
{
protected:
    SliderTextBoxMouseTest()
    {
        slider.setTextBoxStyle (juce::Slider::TextBoxRight, false, 80, 20);
        window.add (slider, { 0, 0, 200, 40 });
        slider.sendLookAndFeelChange();

        for (auto* child : slider.getChildren())
            if (auto* found = dynamic_cast<PluginLookAndFeel::SliderLabelComp*> (child))
                box = found;
    }

    [[nodiscard]] juce::MouseEvent event() const
    {
        const auto now = juce::Time::getCurrentTime();
        const juce::Point<float> place (3.0f, 4.0f);
        return { juce::Desktop::getInstance().getMainMouseSource(),
                 place,
                 juce::ModifierKeys::leftButtonModifier,
                 0.0f,
                 0.0f,
                 0.0f,
                 0.0f,
                 0.0f,
                 box,
                 box,
                 now,
                 place,
                 now,
                 1,
                 true };
    }

    void sendAll()
    {
        box->mouseEnter (event());
        box->mouseMove (event());
        box->mouseDown (event());
        box->mouseDrag (event());
        box->mouseUp (event());
        box->mouseDoubleClick (event());
        box->mouseWheelMove (event(), {});
        box->mouseExit (event());
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    NotingSlider slider { juce::Slider::LinearHorizontal, juce::Slider::TextBoxRight };
    PluginLookAndFeel::SliderLabelComp* box = nullptr;
};

TEST_F (SliderTextBoxMouseTest, TheMouseWorksOnTheTextAsOnTheSlider)
{
    ASSERT_NE (box, nullptr);
    sendAll();
    EXPECT_EQ (slider.notes, "enter move down drag up double wheel exit ");
    EXPECT_EQ (slider.position, box->getPosition() + juce::Point<int> (3, 4));
}

TEST_F (SliderTextBoxMouseTest, WhileTheTextIsEditedTheSliderHearsNothing)
{
    ASSERT_NE (box, nullptr);
    box->showEditor();
    ASSERT_TRUE (box->isBeingEdited());
    sendAll();
    EXPECT_EQ (slider.notes, "");
    box->hideEditor (true);
}

TEST_F (SliderTextBoxMouseTest, ABarSliderWhichListensByItselfHearsNothingTwice)
{
    ASSERT_NE (box, nullptr);
    slider.setSliderStyle (juce::Slider::LinearBar);

    for (auto* child : slider.getChildren())
        if (auto* found = dynamic_cast<PluginLookAndFeel::SliderLabelComp*> (child))
            box = found;

    sendAll();
    EXPECT_EQ (slider.notes, "");
}

TEST_F (SliderTextBoxMouseTest, TheEditorHasTheTextsFontAndJustification)
{
    ASSERT_NE (box, nullptr);
    box->showEditor();
    auto* editor = box->getCurrentTextEditor();
    ASSERT_NE (editor, nullptr);
    EXPECT_FLOAT_EQ (editor->getFont().getHeight(), window.style.getLabelFont (*box).getHeight());
    EXPECT_EQ (editor->getJustificationType(), juce::Justification::centred);
    box->hideEditor (true);
}

TEST (CaretTest, TheCaretKeepsItsOwnWidth)
{
    PluginLookAndFeel style;
    juce::Component owner;
    const std::unique_ptr<juce::CaretComponent> caret (style.createCaretComponent (&owner));
    caret->setCaretPosition ({ 11, 12, 9, 20 });
    EXPECT_EQ (caret->getBounds(), juce::Rectangle<int> (11, 12, 2, 20));
}
} // namespace
} // namespace mk::orlo
