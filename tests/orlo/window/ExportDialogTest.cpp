// SPDX-License-Identifier: AGPL-3.0-or-later
// From the button through the system-independent save dialog to the file, by mouse and keys; needs a display.
#include "orlo/display/ContextMenu.h"
#include "orlo/parameters/Params.h"
#include "tests/support/EditorWindow.h"
#include "tests/support/FindComponents.h"
#include "tests/support/PlayNoise.h"
#include "tests/support/ScreenCapture.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using Box = juce::FileChooserDialogBox;

class ExportDialog : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        // Such a box is another program's window.
        if (juce::FileChooser::isPlatformDialogAvailable())
            GTEST_SKIP() << "the system has a box of its own";

#if defined(__SANITIZE_THREAD__)
        // All of this is the message thread's, and so slow there that the mouse runs away from it.
        GTEST_SKIP() << "not under ThreadSanitizer";
#endif

        setLastExport (folder.get().getChildFile ("last.png"));
        processor.prepareToPlay (44100.0, 512);
        set (Params::id::autoFreeze, 0.0f);
        set (Params::id::drawMode, 1.0f); // Scroll
        window = std::make_unique<EditorWindow> (processor);
        ASSERT_TRUE (window->isOpen);
        ASSERT_TRUE (playNoiseUntilItShows (processor, window->getPicture().getWidth()));
        set (Params::id::freeze, 1.0f);
        ASSERT_TRUE (waitUntilAllIsPainted (processor));
    }

    void TearDown() override
    {
        window = nullptr;
        settings.getSettings().removeAllProperties (nullptr);
    }

    void set (const char* id, float value)
    {
        processor.getParameterState().getParameter (id)->setValueNotifyingHost (value);
    }

    void setLastExport (const juce::File& file)
    {
        settings.getSettings().setProperty (pluginCore::SettingsIds::lastExportFile, file.getFullPathName(), nullptr);
    }

    [[nodiscard]] juce::String getLastExport() const
    {
        return settings.getSettings()[pluginCore::SettingsIds::lastExportFile].toString();
    }

    [[nodiscard]] juce::Button& getExportButton()
    {
        return *findInside<juce::Button> (window->getMain().getSideBar(),
                                          [] (const auto& button)
                                          { return button.getTitle() == juce::translate ("Export as PNG"); });
    }

    /** Clicks the button and waits for the dialog. */
    [[nodiscard]] bool openDialog()
    {
        return window->click (getExportButton())
               && pumpUntil ([] { return ! findWindows<Box>().empty() && findWindows<Box>().front()->isShowing(); });
    }

    [[nodiscard]] static juce::FileBrowserComponent& getBrowser()
    {
        return *findInside<juce::FileBrowserComponent> (*findWindows<Box>().front());
    }

    /** Puts the name into the dialog's field, letter by letter. */
    [[nodiscard]] bool typeName (const juce::String& name)
    {
        auto* const field = findInside<juce::TextEditor> (getBrowser());

        if (! window->click (*field) || ! pumpUntil ([field] { return field->hasKeyboardFocus (true); }))
            return false;

        Screen::getInstance().setKey (Screen::controlKey, true);
        window->typeKey ('a');
        Screen::getInstance().setKey (Screen::controlKey, false);

        for (const auto letter : name)
            window->typeKey ((unsigned long) letter);

        return pumpUntil ([&] { return field->getText() == name; });
    }

    [[nodiscard]] bool clickButton (const juce::String& text)
    {
        auto* const button = findInside<juce::TextButton> (
            *findWindows<Box>().front(), [&] (const auto& candidate) { return candidate.getButtonText() == text; });

        return button != nullptr && pumpUntil ([button] { return button->isEnabled(); }) && window->click (*button);
    }

    [[nodiscard]] bool clickSave() { return clickButton (getBrowser().getActionVerb()); }

    [[nodiscard]] static bool waitUntilClosed()
    {
        return pumpUntil ([] { return findWindows<Box>().empty(); });
    }

    const TemporaryFolder folder;
    AudioPluginAudioProcessor processor;
    const pluginCore::PluginGlobalSettings settings;
    std::unique_ptr<EditorWindow> window;
};

TEST_F (ExportDialog, TheButtonAsksAndThePictureOfTheWindowIsSavedUnderTheTypedName)
{
    auto& container = window->getContainer();
    ASSERT_TRUE (openDialog());
    EXPECT_EQ (findWindows<Box>().front()->getName(), juce::translate ("Save as png"));
    EXPECT_EQ (getBrowser().getRoot(), folder.get()) << "where the last one went";

    ASSERT_TRUE (typeName ("mine"));
    ASSERT_TRUE (clickSave());
    ASSERT_TRUE (waitUntilClosed());

    const auto file = folder.get().getChildFile ("mine.png");
    EXPECT_EQ (getLastExport(), file.getFullPathName());
    const auto exported = juce::ImageFileFormat::loadFrom (file);
    ASSERT_EQ (exported.getBounds(), container.getLocalBounds());

    // The mouse over the window brings the view button, which is no more part of the picture than the grip is.
    auto& grip = *findInside<juce::ResizableCornerComponent> (*window->editor);
    const auto gripArea = container.getLocalArea (&grip, grip.getLocalBounds());

    // What the line of help says has changed with the mouse since then.
    const auto helpArea = container.getHelpLine().getBounds();
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            const auto shown = captureScreen (container.getScreenBounds());

            for (int y = 0; y < exported.getHeight(); ++y)
                for (int x = 0; x < exported.getWidth(); ++x)
                    if (! gripArea.contains (x, y) && ! helpArea.contains (x, y)
                        && shown.getPixelAt (x, y) != exported.getPixelAt (x, y))
                        return false;

            return true;
        }));
    EXPECT_FALSE (window->getMain().getViewButton().isVisible());
}

TEST_F (ExportDialog, TheMenuOfThePictureAsksToo)
{
    ASSERT_TRUE (window->click (window->getPicture(), EditorWindow::rightButton));
    ASSERT_TRUE (pumpUntil ([] { return findOpenMenu() != nullptr && findOpenMenu()->isShowing(); }));

    // The second entry.
    window->typeKey (Screen::downKey);
    window->typeKey (Screen::downKey);
    window->typeKey (Screen::returnKey);
    ASSERT_TRUE (pumpUntil ([] { return ! findWindows<Box>().empty(); }));

    ASSERT_TRUE (typeName ("menu.png"));
    ASSERT_TRUE (clickSave());
    ASSERT_TRUE (waitUntilClosed());
    EXPECT_TRUE (juce::ImageFileFormat::loadFrom (folder.get().getChildFile ("menu.png")).isValid());
}

TEST_F (ExportDialog, AFileThatIsThereIsReplacedOnlyIfTheUserAgrees)
{
    const auto file = folder.get().getChildFile ("there.png");
    ASSERT_TRUE (file.replaceWithText ("mine"));

    for (const auto agrees : { false, true })
    {
        ASSERT_TRUE (openDialog());
        ASSERT_TRUE (typeName ("there.png"));
        ASSERT_TRUE (clickSave());
        ASSERT_TRUE (pumpUntil ([] { return ! findWindows<juce::AlertWindow>().empty(); }));

        auto& question = *findWindows<juce::AlertWindow>().front();
        ASSERT_TRUE (window->click (*question.getButton (agrees ? 0 : 1)));
        ASSERT_TRUE (pumpUntil ([] { return findWindows<juce::AlertWindow>().empty(); }));

        if (! agrees)
        {
            EXPECT_EQ (file.loadFileAsString(), "mine");
            window->typeKey (Screen::escapeKey);
        }

        ASSERT_TRUE (waitUntilClosed());
    }

    EXPECT_TRUE (juce::ImageFileFormat::loadFrom (file).isValid());
}

TEST_F (ExportDialog, CancellingWritesNothing)
{
    const auto before = getLastExport();
    ASSERT_TRUE (openDialog());
    ASSERT_TRUE (typeName ("never"));
    ASSERT_TRUE (clickButton ("Cancel"));
    ASSERT_TRUE (waitUntilClosed());

    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
    EXPECT_EQ (getLastExport(), before);
}

} // namespace
} // namespace mk::orlo::test
