// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the whole window with the real mouse and the real keyboard; needs a display.
#include "EditorInWindow.h"
#include "tests/support/PlayNoise.h"
#include "tests/support/ScreenCapture.h"
#include "tests/support/TemporaryFolder.h"

#include "orlo/window/CreateEditor.h"

namespace mk::orlo::test
{
namespace
{

class EditorWindowTest : public EditorInWindowTest
{
};

//==============================================================================
TEST_F (EditorWindowTest, HoldingTheButtonShowsCrosshairReadoutAndKey)
{
    auto& picture = window->getPicture();
    auto& readout = window->getContainer().getReadout();
    auto& keyboard = window->getContainer().getKeyboard();

    ASSERT_TRUE (window->moveTo (picture, { 200, 100 }));
    ASSERT_TRUE (pumpUntil ([&] { return readout.isVisible() && readout.getText().isNotEmpty(); }));
    EXPECT_EQ (readout.getX(), picture.getX() + 1) << "the readout rests in the corner";
    EXPECT_EQ (readout.getBottom(), picture.getBottom() - 1);

    window->press();
    ASSERT_TRUE (pumpUntil ([&] { return picture.isCrosshairVisible(); }));
    EXPECT_GT (readout.getX(), 200) << "the readout is beside the cursor";
    EXPECT_NE (keyboard.getHighlightedNote(), KeyboardScaleComponent::noNote);

    Screen::getInstance().moveMouseTo (picture.localPointToGlobal (juce::Point { 300, 150 }));
    ASSERT_TRUE (pumpUntil ([&] { return readout.getX() > 300; })) << "the readout follows the cursor";

    window->release();
    ASSERT_TRUE (pumpUntil ([&] { return ! picture.isCrosshairVisible(); }));
    EXPECT_EQ (keyboard.getHighlightedNote(), KeyboardScaleComponent::noNote);

    ASSERT_TRUE (window->moveAway());
    EXPECT_TRUE (pumpUntil ([&] { return ! readout.isVisible(); }));
}

TEST_F (EditorWindowTest, AShiftClickFreezesThePicture)
{
    window->holdKey (Screen::shiftKey);
    ASSERT_TRUE (pumpUntil ([] { return juce::ModifierKeys::getCurrentModifiersRealtime().isShiftDown(); }));
    ASSERT_TRUE (window->click (window->getPicture()));
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::freeze) >= 0.5f; }));
    EXPECT_FALSE (window->getPicture().isCrosshairVisible());
}

//==============================================================================
TEST_F (EditorWindowTest, TheExportedPictureMatchesTheScreen)
{
    ASSERT_TRUE (playNoiseUntilItShows (processor, window->getPicture().getWidth()));
    set (Params::id::freeze, 1.0f);
    ASSERT_TRUE (window->moveAway());

    // In Full View buttons float on the picture.
    ASSERT_TRUE (window->moveToCentre (window->getPicture()));
    ASSERT_TRUE (pumpUntil ([&] { return window->getMain().getViewButton().isShowing(); }));
    ASSERT_TRUE (window->click (window->getMain().getViewButton()));
    auto& button = window->getMain().getExportButton();
    ASSERT_TRUE (pumpUntil ([&] { return button.isShowing(); }));

    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("picture.png");
    ASSERT_TRUE (window->moveAway());

    auto& container = window->getContainer();
    ASSERT_TRUE (pumpUntil (
        [&]
        {
            return ! window->getMain().getViewButton().isVisible() && ! container.getHelpLine().isVisible()
                   && ! container.getReadout().isVisible();
        }));
    // Repeats the export until the last columns are on the screen.
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            file.deleteFile();
            container.exportTo (file);

            if (! pumpUntil ([&] { return file.existsAsFile(); }))
                return false;

            const auto exported = juce::ImageFileFormat::loadFrom (file);
            const auto shown = captureScreen (container.getScreenBounds());

            if (exported.getBounds() != container.getLocalBounds() || shown.getBounds() != exported.getBounds())
                return false;

            // Skips the left half, where the buttons float on the screen's picture but are not exported.
            for (int y = 0; y < exported.getHeight(); y += 3)
                for (int x = exported.getWidth() / 2; x < exported.getWidth(); x += 3)
                    if (shown.getPixelAt (x, y) != exported.getPixelAt (x, y))
                        return false;

            return true;
        }));
}

//==============================================================================
TEST_F (EditorWindowTest, TheViewButtonShowsWhileTheMouseIsInTheWindow)
{
    auto& button = window->getMain().getViewButton();
    ASSERT_TRUE (window->moveToCentre (window->getPicture()));
    EXPECT_TRUE (pumpUntil ([&] { return button.isVisible(); }));
    ASSERT_TRUE (window->moveAway());
    EXPECT_TRUE (pumpUntil ([&] { return ! button.isVisible(); }));
}

TEST_F (EditorWindowTest, TheViewButtonSwitchesBetweenTheViewsAndTheirSizes)
{
    auto& main = window->getMain();
    const auto standard = window->editor->getLocalBounds();
    processor.getUIView().cleanBounds = "0 0 900 333";
    set (Params::id::internal, 0.0f);

    ASSERT_TRUE (window->moveToCentre (window->getPicture()));
    ASSERT_TRUE (pumpUntil ([&] { return main.getViewButton().isShowing(); }));
    EXPECT_EQ (dynamic_cast<juce::SettableTooltipClient&> (main.getViewButton()).getTooltip(),
               juce::translate ("Switch to Full View"));

    ASSERT_TRUE (window->click (main.getViewButton()));
    ASSERT_TRUE (pumpUntil ([&] { return window->editor->getLocalBounds() == juce::Rectangle (900, 333); }));
    EXPECT_TRUE (processor.getUIView().cleanViewMode.get());
    EXPECT_FALSE (main.getSideBar().isVisible());
    EXPECT_EQ (main.getSpectrogramContainer().getBounds(), main.getLocalBounds());
    EXPECT_EQ (window->editor->getConstrainer()->getFixedAspectRatio(), 0.0);
    EXPECT_NEAR (get (Params::id::internal), 0.01f, 1.0e-6f) << "the host must see that the session has changed";
    EXPECT_EQ (dynamic_cast<juce::SettableTooltipClient&> (main.getViewButton()).getTooltip(),
               juce::translate ("Switch to Standard View"));

    ASSERT_TRUE (window->click (main.getViewButton()));
    ASSERT_TRUE (pumpUntil ([&] { return window->editor->getHeight() == standard.getHeight(); }));
    EXPECT_NEAR (window->editor->getWidth(), standard.getWidth(), 1) << "the aspect ratio causes rounding";
    EXPECT_TRUE (main.getSideBar().isVisible());
    EXPECT_NEAR (window->editor->getConstrainer()->getFixedAspectRatio(), 1.818, 1.0e-6);
}

TEST_F (EditorWindowTest, ARestoredSessionSwitchesTheOpenWindow)
{
    AudioPluginAudioProcessor other { createEditor };
    other.getUIView().cleanViewMode = true;
    other.getUIView().cleanBounds = "0 0 640 360";
    juce::MemoryBlock blob;
    other.getStateInformation (blob);

    processor.setStateInformation (blob.getData(), int (blob.getSize()));
    EXPECT_TRUE (pumpUntil ([&] { return window->editor->getLocalBounds() == juce::Rectangle (640, 360); }));
    EXPECT_FALSE (window->getMain().getSideBar().isVisible());
}

//==============================================================================
TEST_F (EditorWindowTest, DraggingTheGripKeepsTheAspectRatio)
{
    auto& editor = *window->editor;
    const auto before = editor.getLocalBounds();
    ASSERT_TRUE (window->moveToCentre (window->getPicture()));
    const auto corner = editor.getScreenBounds().getBottomRight() - juce::Point { 4, 4 };
    Screen::getInstance().moveMouseTo (corner);
    ASSERT_TRUE (pumpUntil (
        []
        {
            return dynamic_cast<juce::ResizableCornerComponent*> (
                       juce::Desktop::getInstance().getMainMouseSource().getComponentUnderMouse())
                   != nullptr;
        }));

    window->press();
    Screen::getInstance().moveMouseTo (corner + juce::Point { 200, 110 });
    ASSERT_TRUE (pumpUntil ([&] { return editor.getWidth() > before.getWidth() + 100; }));
    window->release();
    pumpPending();
    EXPECT_NEAR (double (editor.getWidth()) / double (editor.getHeight()), 1.818, 0.01);
    EXPECT_EQ (processor.getSessionState().pluginEditorWidth, editor.getWidth());
}

TEST_F (EditorWindowTest, TheGripShowsWhileTheMouseIsInTheWindow)
{
    const auto findGrip = [this]
    {
        for (auto* const child : window->editor->getChildren())
            if (auto* const grip = dynamic_cast<juce::ResizableCornerComponent*> (child))
                return grip;

        return static_cast<juce::ResizableCornerComponent*> (nullptr);
    };

    ASSERT_NE (findGrip(), nullptr);
    ASSERT_TRUE (window->moveToCentre (window->getPicture()));
    EXPECT_TRUE (pumpUntil ([&] { return findGrip()->isVisible(); }));
    ASSERT_TRUE (window->moveAway());
    EXPECT_TRUE (pumpUntil ([&] { return ! findGrip()->isVisible(); }));
}

} // namespace
} // namespace mk::orlo::test
