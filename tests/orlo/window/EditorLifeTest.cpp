// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the window as hosts use it: opening and closing, hiding, scaling, reparenting; needs a display.
#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "plugin_core/window/MappedWindow.h"
#include "plugin_core/window/WindowEvents.h"
#include "tests/support/EditorWindow.h"
#include "tests/support/FindComponents.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Window.h"

#include <gtest/gtest.h>

#include <deque>
#include <tuple>

namespace mk::orlo::test
{
namespace
{

class EditorLifeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        processor.prepareToPlay (44100.0, 512);
    }

    void TearDown() override { settings.getSettings().removeAllProperties (nullptr); }

    [[nodiscard]] bool isAnalysing() { return processor.getImageBuilder().isThreadRunning(); }

    AudioPluginAudioProcessor processor { createEditor };
    const pluginCore::PluginGlobalSettings settings;
};

/** A host's window, which is closed by the destructor. */
class HostWindow
{
public:
    HostWindow (int width, int height) : handle (Screen::getInstance().createHostWindow (width, height)) {}
    ~HostWindow() { Screen::getInstance().destroyHostWindow (handle); }

    void* const handle;

    JUCE_DECLARE_NON_COPYABLE (HostWindow)
};

/** Handles what the X server has to say about everything that has been asked of it. An event about the size of a window
    that comes after a change of its scale would be read in the new scale. */
void handleAllWindowEvents()
{
    std::ignore = juce::Desktop::getMousePosition(); // waits for the server's answer, before which the events come
    pluginCore::WindowEvents::handleQueuedEvents();
    pumpPending();
}

[[nodiscard]] int countThreads()
{
    return juce::File ("/proc/self/task").getNumberOfChildFiles (juce::File::findDirectories);
}

TEST_F (EditorLifeTest, OpensAndClosesManyTimes)
{
    {
        const EditorWindow first (processor);
        ASSERT_TRUE (first.isOpen);
    }

    const auto numThreads = countThreads();

    for (int i = 0; i < 200 / slowdown; ++i)
    {
        const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditorIfNeeded());
        editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
        editor->setVisible (true);
        ASSERT_TRUE (pumpUntil ([this] { return isAnalysing(); })) << i;
    }

    EXPECT_FALSE (isAnalysing());
    EXPECT_EQ (processor.getActiveEditor(), nullptr);
    EXPECT_TRUE (pumpUntil ([&] { return countThreads() <= numThreads; }));
}

TEST_F (EditorLifeTest, FiveInstancesHaveIndependentWindows)
{
    // Small, so that painting all five leaves time for everything else even under a sanitizer.
    const auto makeSmall = [] (AudioPluginAudioProcessor& instance)
    {
        instance.getSessionState().pluginEditorWidth = 300;
        instance.getSessionState().pluginEditorHeight = 165;
    };

    std::deque<AudioPluginAudioProcessor> others;

    for (int i = 0; i < 4; ++i)
        others.emplace_back (createEditor);

    makeSmall (processor);
    EditorWindow first (processor);
    std::vector<std::unique_ptr<EditorWindow>> windows;

    for (auto& other : others)
    {
        other.prepareToPlay (48000.0, 256);
        makeSmall (other);
        windows.push_back (std::make_unique<EditorWindow> (other));
        EXPECT_EQ (&windows.back()->editor->getLookAndFeel(), &first.editor->getLookAndFeel());
    }

    others[1].getUIView().cleanViewMode = true;
    EXPECT_TRUE (pumpUntil ([&] { return ! windows[1]->getMain().getSideBar().isVisible(); }));
    EXPECT_TRUE (windows[2]->getMain().getSideBar().isVisible()) << "each has its own view";

    for (auto& other : others)
        EXPECT_TRUE (pumpUntil ([&] { return other.getImageBuilder().isThreadRunning(); }));

    windows.erase (windows.begin());
    first.editor->repaint();
    pumpPending();
    EXPECT_TRUE (first.editor->isShowing());
}

TEST_F (EditorLifeTest, AHiddenWindowAnalysesNothing)
{
    EditorWindow window (processor);
    ASSERT_TRUE (pumpUntil ([this] { return isAnalysing(); }));
    window.editor->setVisible (false);
    EXPECT_TRUE (pumpUntil ([this] { return ! isAnalysing(); }));
    window.editor->setVisible (true);
    EXPECT_TRUE (pumpUntil ([this] { return isAnalysing(); }));
    window.editor->removeFromDesktop();
    EXPECT_TRUE (pumpUntil ([this] { return ! isAnalysing(); }));
}

TEST_F (EditorLifeTest, AnalysesNothingWhileTheHostsWindowIsMinimised)
{
    auto& screen = Screen::getInstance();
    const HostWindow host (1200, 700);
    std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditorIfNeeded());
    editor->addToDesktop (0, host.handle);
    editor->setVisible (true);
    ASSERT_TRUE (pumpUntil ([this] { return isAnalysing(); }));

    // A window that has not been on the screen yet counts as opening, not as minimised.
    const auto* const peer = editor->getPeer();
    ASSERT_TRUE (pumpUntil ([&] { return pluginCore::isWindowMapped (*peer); }));
    const auto ticks = processor.getFrameClock().tickCount.load();
    ASSERT_TRUE (pumpUntil ([&] { return processor.getFrameClock().tickCount.load() > ticks + 20; })); // 200 ms or more

    screen.setMapped (host.handle, false);
    EXPECT_TRUE (pumpUntil ([this] { return ! isAnalysing(); }));
    screen.setMapped (host.handle, true);
    EXPECT_TRUE (pumpUntil ([this] { return isAnalysing(); }));

    editor = nullptr;
    pumpPending();
}

TEST_F (EditorLifeTest, ShowsTipsWhileAnotherWindowOfTheHostHasTheKeyboard)
{
    if (hasThreadSanitizer)
        GTEST_SKIP() << "not under ThreadSanitizer, where the window is too slow for the mouse";

    const HostWindow tracks (300, 200), host (1200, 700);
    Screen::getInstance().giveKeyboardTo (tracks.handle);
    EditorWindow window (processor, host.handle);
    ASSERT_TRUE (window.isOpen);
    auto* const button = findInside<juce::Button> (window.getMain().getSideBar());
    ASSERT_NE (button, nullptr);
    ASSERT_TRUE (window.moveToCentre (*button));
    auto& line = window.getContainer().getHelpLine();
    EXPECT_TRUE (pumpUntil ([&] { return line.isVisible() && line.getTip() == button->getTooltip(); }));
    EXPECT_TRUE (line.getTip().isNotEmpty());

    ASSERT_TRUE (window.moveToCentre (window.getPicture()));
    EXPECT_TRUE (pumpUntil ([&] { return ! line.isVisible(); }));
}

TEST_F (EditorLifeTest, CanBeMovedIntoAnotherWindowOfTheHost)
{
    const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditorIfNeeded());
    Window first (1200, 700), second (1200, 700);
    first.addAndMakeVisible (*editor);
    ASSERT_TRUE (pumpUntil ([this] { return isAnalysing(); }));
    second.addAndMakeVisible (*editor);
    pumpPending();
    EXPECT_EQ (editor->getParentComponent(), &second);
    EXPECT_TRUE (pumpUntil ([this] { return isAnalysing(); }));
}

TEST_F (EditorLifeTest, IsScaledByTheHostAsAWhole)
{
    // A window of its own for each, as a host scales it once.
    for (const auto scale : { 1.5f, 2.0f, 0.75f, 1.0f })
    {
        EditorWindow window (processor);
        handleAllWindowEvents();
        const auto size = window.editor->getLocalBounds();
        window.editor->setScaleFactor (scale);
        handleAllWindowEvents();

        // Whole pixels of the screen may be a fraction of a unit more or less.
        EXPECT_NEAR (window.editor->getWidth(), size.getWidth(), 1) << scale;
        EXPECT_NEAR (window.editor->getHeight(), size.getHeight(), 1) << scale;
        EXPECT_EQ (window.getMain().getLocalBounds(), window.editor->getLocalBounds()) << scale;
        EXPECT_NEAR (float (window.editor->getBoundsInParent().getWidth()), float (size.getWidth()) * scale, 1.5f)
            << scale;
    }
}

TEST_F (EditorLifeTest, EveryResizeByTheHostLaysTheWindowOutAgain)
{
    EditorWindow window (processor);
    processor.getUIView().cleanViewMode = true;
    pumpPending();

    for (const auto& size : { juce::Rectangle (100, 100), { 3000, 100 }, { 100, 1400 }, { 1818, 1000 } })
    {
        window.editor->setSize (size.getWidth(), size.getHeight());
        pumpPending();
        EXPECT_EQ (window.getContainer().getLocalBounds(), window.editor->getLocalBounds());
    }

    EXPECT_EQ (settings.getSettings()[pluginCore::SettingsIds::latestCleanViewBounds].toString(), "0 0 1818 1000");
}

//==============================================================================
TEST_F (EditorLifeTest, ClosesWhileItsMenuIsOpen)
{
    // Everything runs on the message thread, which is too slow under the sanitizer to keep up with the mouse.
    if (hasThreadSanitizer)
        GTEST_SKIP() << "not under ThreadSanitizer";

    {
        EditorWindow window (processor);
        ASSERT_TRUE (window.click (window.getPicture(), EditorWindow::rightButton));
        ASSERT_TRUE (pumpUntil ([] { return findOpenMenu() != nullptr; }));
    }

    EXPECT_TRUE (pumpUntil ([] { return findOpenMenu() == nullptr; }));
}

TEST_F (EditorLifeTest, ClosesWhileItAsksForAFile)
{
    {
        EditorWindow window (processor);
        window.getContainer().exportAsImage();
        ASSERT_TRUE (pumpUntil ([] { return findOpenMenu() != nullptr; })) << "the dialog";

        // A second request replaces the first.
        window.getContainer().exportAsImage();
        ASSERT_TRUE (pumpUntil ([] { return findOpenMenu() != nullptr; }));
        EXPECT_EQ (juce::ModalComponentManager::getInstance()->getNumModalComponents(), 1);
    }

    EXPECT_TRUE (pumpUntil ([] { return findOpenMenu() == nullptr; }));
}

TEST_F (EditorLifeTest, ClosesDuringADrag)
{
    {
        EditorWindow window (processor);
        ASSERT_TRUE (window.moveToCentre (window.getPicture()));
        window.press();
        ASSERT_TRUE (pumpUntil ([&] { return window.getPicture().isCrosshairVisible(); }));
        window.editor = nullptr;
        window.release();
    }

    pumpPending();
    EXPECT_EQ (processor.getActiveEditor(), nullptr);

    // No window was left to receive the release, so JUCE considers the button pressed until the next click.
    EditorWindow next (processor);
    next.press();
    next.release();
    EXPECT_TRUE (pumpUntil ([] { return ! juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown(); }));
}

//==============================================================================
/** Counts how often a component is painted. */
class PaintCounter final : public juce::CachedComponentImage
{
public:
    PaintCounter (juce::Component& componentToPaint, int& countToRaise)
        : component (componentToPaint), count (countToRaise)
    {
    }

    void paint (juce::Graphics& g) override
    {
        ++count;
        component.paintEntireComponent (g, false);
    }

    bool invalidateAll() override { return true; }
    bool invalidate (const juce::Rectangle<int>&) override { return true; }
    void releaseResources() override {}

private:
    juce::Component& component;
    int& count;
};

TEST_F (EditorLifeTest, OnlyThePictureIsRepaintedWhileItMoves)
{
    auto& state = processor.getParameterState();
    state.getParameter (Params::id::ruler)->setValueNotifyingHost (1.0f);
    state.getParameter (Params::id::keyboard)->setValueNotifyingHost (1.0f);

    int numPicture = 0, numRuler = 0, numKeyboard = 0, numPanel = 0;
    EditorWindow window (processor);
    window.getMain().setSettingsWanted (true);
    ASSERT_TRUE (window.moveAway());

    const auto count = [] (juce::Component& component, int& counter)
    { component.setCachedComponentImage (new PaintCounter (component, counter)); };
    count (window.getPicture(), numPicture);
    count (window.getContainer().getRuler(), numRuler);
    count (window.getContainer().getKeyboard(), numKeyboard);
    count (window.getMain().getSettingsPanel(), numPanel);

    const auto getOthers = [&] { return numRuler + numKeyboard + numPanel; };
    auto play = [this, random = juce::Random (1)]() mutable
    {
        juce::AudioBuffer<float> block (2, 512);
        juce::MidiBuffer midi;

        for (int channel = 0; channel < block.getNumChannels(); ++channel)
            for (int i = 0; i < block.getNumSamples(); ++i)
                block.setSample (channel, i, random.nextFloat() - 0.5f);

        processor.processBlock (block, midi);
    };

    // Repeated until it succeeds, since the window system may repaint the whole window at any moment.
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            const auto pictures = numPicture;
            const auto others = getOthers();
            const auto hasMoved = [&]
            {
                play();
                return numPicture >= pictures + 30;
            };
            return pumpUntil (hasMoved) && getOthers() == others;
        },
        20.0));
}

} // namespace
} // namespace mk::orlo::test
