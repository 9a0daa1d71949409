// SPDX-License-Identifier: AGPL-3.0-or-later
// The whole window with the real mouse and the real keyboard; needs a display.
#include "tests/support/EditorWindow.h"
#include "orlo/Params.h"
#include "tests/support/PlayNoise.h"
#include "tests/support/ScreenCapture.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class EditorWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

#if defined(__SANITIZE_THREAD__)
        // All of this is the message thread's, and so slow there that the mouse runs away from it.
        GTEST_SKIP() << "not under ThreadSanitizer";
#endif

        processor.prepareToPlay (44100.0, 512);
        set (Params::id::ruler, 1.0f);
        set (Params::id::keyboard, 1.0f);
        set (Params::id::autoFreeze, 0.0f);
        set (Params::id::drawMode, 1.0f); // Scroll: the newest is at the right
        open();
    }

    void TearDown() override
    {
        window = nullptr;
        settings.getSettings().removeAllProperties (nullptr);
    }

    void open()
    {
        window = std::make_unique<EditorWindow> (processor);
        ASSERT_TRUE (window->isOpen);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    [[nodiscard]] float get (const char* id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    /** Opens the menu of a part of the picture, and waits until it shows. */
    [[nodiscard]] bool openMenuOn (juce::Component& component)
    {
        return window->click (component, EditorWindow::rightButton)
               && pumpUntil ([] { return findOpenMenu() != nullptr && findOpenMenu()->isShowing(); });
    }

    [[nodiscard]] static bool waitUntilNoMenu()
    {
        return pumpUntil ([] { return findOpenMenu() == nullptr; });
    }

    [[nodiscard]] bool playUntilItShows() { return playNoiseUntilItShows (processor, window->getPicture().getWidth()); }

    AudioPluginAudioProcessor processor;
    const pluginCore::PluginGlobalSettings settings;
    std::unique_ptr<EditorWindow> window;
};

//==============================================================================
TEST_F (EditorWindowTest, HoldingTheButtonShowsCrosshairReadoutAndKey)
{
    auto& picture = window->getPicture();
    auto& readout = window->getContainer().getReadout();
    auto& keyboard = window->getContainer().getKeyboard();

    ASSERT_TRUE (window->moveTo (picture, { 200, 100 }));
    ASSERT_TRUE (pumpUntil ([&] { return readout.isVisible() && readout.getText().isNotEmpty(); }));
    EXPECT_EQ (readout.getX(), picture.getX() + 1) << "at rest in the corner";
    EXPECT_EQ (readout.getBottom(), picture.getBottom() - 1);

    window->press();
    ASSERT_TRUE (pumpUntil ([&] { return picture.isCrosshairVisible(); }));
    EXPECT_GT (readout.getX(), 200) << "beside the cursor";
    EXPECT_NE (keyboard.getHighlightedNote(), KeyboardScaleComponent::noNote);

    Screen::getInstance().moveMouseTo (picture.localPointToGlobal (juce::Point { 300, 150 }));
    ASSERT_TRUE (pumpUntil ([&] { return readout.getX() > 300; })) << "and follows it";

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
TEST_F (EditorWindowTest, ARightClickAnywhereOnThePictureOpensItsMenu)
{
    auto& container = window->getContainer();

    for (auto* const part : { static_cast<juce::Component*> (&container.getSpectrogram()),
                              static_cast<juce::Component*> (&container.getRuler()),
                              static_cast<juce::Component*> (&container.getKeyboard()) })
    {
        ASSERT_TRUE (openMenuOn (*part)) << part->getTitle();
        EXPECT_EQ (container.getContextMenu().getNumItems(), 6);
        EXPECT_FALSE (container.getReadout().isVisible());
        EXPECT_FALSE (container.getSpectrogram().isCrosshairVisible());
        window->typeKey (Screen::escapeKey);
        ASSERT_TRUE (waitUntilNoMenu());
    }
}

TEST_F (EditorWindowTest, TheMenuCanBeUsedByKeys)
{
    const auto getState = [this] { return processor.getStateXml (true)->toString(); };
    ASSERT_TRUE (openMenuOn (window->getPicture()));
    const auto before = getState();

    // The next entry that can be chosen after the one under the mouse: either freezes or switches the view.
    window->typeKey (Screen::downKey);
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (waitUntilNoMenu());
    EXPECT_TRUE (pumpUntil ([&] { return getState() != before; }));
}

TEST_F (EditorWindowTest, TheExportedPictureIsWhatTheScreenShows)
{
    ASSERT_TRUE (playUntilItShows());
    set (Params::id::freeze, 1.0f);
    ASSERT_TRUE (window->moveAway());

    // In Full View, where buttons float on the picture.
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
    // Again until the last columns are on the screen.
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            container.exportTo (file);
            const auto exported = juce::ImageFileFormat::loadFrom (file);
            const auto shown = captureScreen (container.getScreenBounds());

            if (exported.getBounds() != container.getLocalBounds() || shown.getBounds() != exported.getBounds())
                return false;

            // The floating buttons at the left lie on the picture on the screen but are not part of it.
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
    EXPECT_NEAR (window->editor->getWidth(), standard.getWidth(), 1) << "the ratio rounds";
    EXPECT_TRUE (main.getSideBar().isVisible());
    EXPECT_NEAR (window->editor->getConstrainer()->getFixedAspectRatio(), 1.818, 1.0e-6);
}

TEST_F (EditorWindowTest, AFrozenPictureOffersItsButtonsInFullViewOnly)
{
    auto& main = window->getMain();
    set (Params::id::freeze, 1.0f);
    pumpPending();
    EXPECT_FALSE (main.getFreezeButton().isVisible());
    EXPECT_FALSE (main.getExportButton().isVisible());

    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (pumpUntil ([&] { return main.getFreezeButton().isVisible() && main.getExportButton().isVisible(); }));
    EXPECT_GT (main.getExportButton().getY(), main.getFreezeButton().getBottom());

    ASSERT_TRUE (window->click (main.getFreezeButton()));
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::freeze) < 0.5f; }));
    EXPECT_TRUE (
        pumpUntil ([&] { return ! main.getFreezeButton().isVisible() && ! main.getExportButton().isVisible(); }));
}

TEST_F (EditorWindowTest, ARestoredSessionSwitchesTheOpenWindow)
{
    AudioPluginAudioProcessor other;
    other.getUIView().cleanViewMode = true;
    other.getUIView().cleanBounds = "0 0 640 360";
    juce::MemoryBlock blob;
    other.getStateInformation (blob);

    processor.setStateInformation (blob.getData(), int (blob.getSize()));
    EXPECT_TRUE (pumpUntil ([&] { return window->editor->getLocalBounds() == juce::Rectangle (640, 360); }));
    EXPECT_FALSE (window->getMain().getSideBar().isVisible());
}

//==============================================================================
TEST_F (EditorWindowTest, DraggingTheGripResizesInTheRatio)
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

//==============================================================================
TEST_F (EditorWindowTest, TheTabKeyReachesTheViewButtonAndReturnUsesIt)
{
    ASSERT_TRUE (window->moveAway());
    auto& button = window->getMain().getViewButton();

    ASSERT_TRUE (pumpUntil (
        [&, tries = 0]() mutable
        {
            if (tries++ % 10 == 0)
                window->typeKey (Screen::tabKey);

            return button.hasKeyboardFocus (false);
        }));

    EXPECT_TRUE (button.isVisible());
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return processor.getUIView().cleanViewMode.get(); }));
}

TEST_F (EditorWindowTest, KeysThatItDoesNotUseAreLeftToTheHost)
{
    ASSERT_TRUE (window->click (window->getPicture()));
    pumpPending();
    EXPECT_EQ (dynamic_cast<juce::Button*> (juce::Component::getCurrentlyFocusedComponent()), nullptr)
        << "a space bar meant for the host would press it";

    auto& peer = *window->editor->getPeer();

    for (const auto key : { int ('q'), int ('1'), juce::KeyPress::F5Key, juce::KeyPress::spaceKey })
        EXPECT_FALSE (peer.handleKeyPress (juce::KeyPress (key))) << key;
}

TEST_F (EditorWindowTest, EveryButtonHasAnAccessibleName)
{
    set (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    pumpPending();

    std::function<void (juce::Component&)> check = [&] (juce::Component& component)
    {
        if (dynamic_cast<juce::Button*> (&component) != nullptr)
        {
            const auto* const handler = component.getAccessibilityHandler();
            EXPECT_TRUE (handler == nullptr || handler->getTitle().isNotEmpty()) << component.getName();
        }

        for (auto* const child : component.getChildren())
            check (*child);
    };

    check (*window->editor);
}

} // namespace
} // namespace mk::orlo::test
