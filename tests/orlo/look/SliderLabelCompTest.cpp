// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/SliderLabelComp.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
/** A slider that records the events that it receives. */
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

TEST_F (SliderTextBoxMouseTest, TheSliderReceivesNothingWhileTheTextIsEdited)
{
    ASSERT_NE (box, nullptr);
    window.show();
    box->showEditor();
    ASSERT_TRUE (box->isBeingEdited());
    sendAll();
    EXPECT_EQ (slider.notes, "");
    box->hideEditor (true);
}

TEST_F (SliderTextBoxMouseTest, ABarSliderThatListensItselfReceivesNothingTwice)
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
    window.show();
    box->showEditor();
    auto* editor = box->getCurrentTextEditor();
    ASSERT_NE (editor, nullptr);
    EXPECT_FLOAT_EQ (editor->getFont().getHeight(), window.style.getLabelFont (*box).getHeight());
    EXPECT_EQ (editor->getJustificationType(), juce::Justification::centred);
    box->hideEditor (true);
}

/** A slider in a real window, set up as in the panel, so that its text covers it. */
class SliderTextInWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        window = std::make_unique<test::Window> (400, 200);
        mouse = std::make_unique<test::PeerMouse> (*window);
        window->setLookAndFeel (&style);
        slider.getProperties().set (pluginCore::styleProperty::buttonSlider, true);
        slider.setSliderSnapsToMousePosition (false);
        slider.setRange (0.0, 10.0);
        slider.setValue (7.0);
        slider.setDoubleClickReturnValue (true, 2.0);
        window->addAndMakeVisible (slider);
        slider.setBounds (50, 50, 200, 40);
        slider.sendLookAndFeelChange();

        for (auto* child : slider.getChildren())
            if (auto* found = dynamic_cast<PluginLookAndFeel::SliderLabelComp*> (child))
                box = found;

        ASSERT_NE (box, nullptr);
        ASSERT_EQ (box->getBounds(), slider.getLocalBounds());
    }

    void TearDown() override
    {
        if (window != nullptr)
            window->setLookAndFeel (nullptr);
    }

    PluginLookAndFeel style;
    std::unique_ptr<test::Window> window;
    std::unique_ptr<test::PeerMouse> mouse;
    juce::Slider slider { juce::Slider::LinearHorizontal, juce::Slider::TextBoxLeft };
    PluginLookAndFeel::SliderLabelComp* box = nullptr;
    const juce::Point<float> place { 60.0f, 20.0f };
};

TEST_F (SliderTextInWindowTest, AClickEditsTheText)
{
    mouse->click (slider, place);
    EXPECT_TRUE (box->isBeingEdited());
    EXPECT_DOUBLE_EQ (slider.getValue(), 7.0);
}

TEST_F (SliderTextInWindowTest, ADoubleClickResetsTheSlider)
{
    mouse->doubleClick (slider, place);
    EXPECT_FALSE (box->isBeingEdited());
    EXPECT_DOUBLE_EQ (slider.getValue(), 2.0);
}

TEST_F (SliderTextInWindowTest, ADoubleClickInAnOpenEditorActsOnItsText)
{
    mouse->click (slider, place);
    ASSERT_TRUE (box->isBeingEdited());
    mouse->doubleClick (slider, place);
    EXPECT_TRUE (box->isBeingEdited());
    EXPECT_DOUBLE_EQ (slider.getValue(), 7.0);
}

TEST_F (SliderTextInWindowTest, ADragMovesTheSliderAndEditsNothing)
{
    mouse->press (slider, place);
    mouse->drag (slider, place.translated (-50.0f, 0.0f));
    mouse->release (slider, place.translated (-50.0f, 0.0f));
    EXPECT_FALSE (box->isBeingEdited());
    EXPECT_LT (slider.getValue(), 7.0);
}

TEST_F (SliderTextInWindowTest, NeitherTheRightButtonNorCtrlEditsTheText)
{
    for (const auto modifiers : { test::PeerMouse::right, test::PeerMouse::left | test::PeerMouse::ctrl })
    {
        mouse->click (slider, place, modifiers);
        EXPECT_FALSE (box->isBeingEdited());
    }
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
