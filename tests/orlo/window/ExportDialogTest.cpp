// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the export from the button through JUCE's own save dialog to the file, by mouse and keys; needs a display.
#include "EditorInWindow.h"
#include "tests/support/FindComponents.h"
#include "tests/support/PlayNoise.h"
#include "tests/support/ScreenCapture.h"
#include "tests/support/TemporaryFolder.h"

#include <cstring>

namespace mk::orlo::test
{
namespace
{
using Box = juce::FileChooserDialogBox;

/** Whether two pictures are equal outside of some areas. Compares whole rows, since comparing single pixels under a
    sanitizer takes so long that the window, which is painted on the same thread, would hardly be painted. */
[[nodiscard]] bool
    isSameBeside (const juce::Image& first, const juce::Image& second, const juce::RectangleList<int>& ignored)
{
    if (first.getBounds() != second.getBounds())
        return false;

    juce::RectangleList<int> compared (first.getBounds());
    compared.subtract (ignored);

    const auto a = first.convertedToFormat (juce::Image::ARGB);
    const auto b = second.convertedToFormat (juce::Image::ARGB);
    const juce::Image::BitmapData pixels (a, juce::Image::BitmapData::readOnly);
    const juce::Image::BitmapData others (b, juce::Image::BitmapData::readOnly);

    for (const auto& area : compared)
        for (int y = area.getY(); y < area.getBottom(); ++y)
            if (std::memcmp (pixels.getPixelPointer (area.getX(), y),
                             others.getPixelPointer (area.getX(), y),
                             size_t (area.getWidth() * pixels.pixelStride))
                != 0)
                return false;

    return true;
}

class ExportDialog : public EditorInWindowTest
{
protected:
    void SetUp() override
    {
        // The system's dialog belongs to another program, so the test cannot operate it.
        if (juce::FileChooser::isPlatformDialogAvailable())
            GTEST_SKIP() << "the system has a save dialog of its own";

        setLastExport (folder.get().getChildFile ("last.png"));
        EditorInWindowTest::SetUp();

        if (IsSkipped() || HasFatalFailure())
            return;

        ASSERT_TRUE (playNoiseUntilItShows (processor, window->getPicture().getWidth()));
        set (Params::id::freeze, 1.0f);
        ASSERT_TRUE (waitUntilAllIsPainted (processor));
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

    /** The dialog in the window, or null if there is none. */
    [[nodiscard]] Box* findBox() { return findInside<Box> (*window->editor); }

    [[nodiscard]] bool waitForBox()
    {
        return pumpUntil ([this] { return findBox() != nullptr && findBox()->isShowing(); });
    }

    /** Clicks the button and waits for the dialog. */
    [[nodiscard]] bool openDialog() { return window->click (getExportButton()) && waitForBox(); }

    [[nodiscard]] juce::FileBrowserComponent& getBrowser()
    {
        return *findInside<juce::FileBrowserComponent> (*findBox());
    }

    /** Types the name into the dialog's field, letter by letter. */
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
            *findBox(), [&] (const auto& candidate) { return candidate.getButtonText() == text; });

        return button != nullptr && pumpUntil ([button] { return button->isEnabled(); }) && window->click (*button);
    }

    [[nodiscard]] bool clickSave() { return clickButton (getBrowser().getActionVerb()); }

    [[nodiscard]] bool waitUntilClosed()
    {
        return pumpUntil ([this] { return findBox() == nullptr; });
    }

    /** Waits until the file contains a picture, and returns it. */
    [[nodiscard]] static juce::Image waitForPicture (const juce::File& file)
    {
        EXPECT_TRUE (pumpUntil ([&] { return juce::ImageFileFormat::loadFrom (file).isValid(); }));
        return juce::ImageFileFormat::loadFrom (file);
    }

    const TemporaryFolder folder;
};

TEST_F (ExportDialog, TheButtonSavesThePictureOfTheWindowUnderTheTypedName)
{
    auto& container = window->getContainer();
    ASSERT_TRUE (openDialog());
    EXPECT_EQ (findBox()->getName(), juce::translate ("Save as png"));
    EXPECT_EQ (getBrowser().getRoot(), folder.get()) << "the folder of the last export";

    ASSERT_TRUE (typeName ("mine"));
    ASSERT_TRUE (clickSave());
    ASSERT_TRUE (waitUntilClosed());

    const auto file = folder.get().getChildFile ("mine.png");
    EXPECT_EQ (getLastExport(), file.getFullPathName());
    const auto exported = waitForPicture (file);
    ASSERT_EQ (exported.getBounds(), container.getLocalBounds());

    // The grip is not exported, and the help line and the readout have changed since, as the mouse has moved.
    auto& grip = *findInside<juce::ResizableCornerComponent> (*window->editor);
    juce::RectangleList<int> ignored (container.getLocalArea (&grip, grip.getLocalBounds()));
    ignored.add (container.getHelpLine().getBounds());
    ignored.add (container.getReadout().getBounds());

    // The view button is not exported either; it shows while the mouse is over the window.
    ASSERT_TRUE (window->moveAway());
    EXPECT_TRUE (pumpUntil (
        [&]
        {
            ignored.add (container.getReadout().getBounds());
            return ! window->getMain().getViewButton().isVisible() && ! container.getReadout().isVisible()
                   && isSameBeside (captureScreen (container.getScreenBounds()), exported, ignored);
        }));
}

TEST_F (ExportDialog, TheDialogHasAWindowOfItsOwnIfTheEditorIsTooSmallForIt)
{
    processor.getUIView().cleanViewMode = true;
    pumpPending();
    window->editor->setSize (400, 300);
    window->getContainer().exportAsImage();
    ASSERT_TRUE (pumpUntil ([] { return ! findWindows<Box>().empty(); }));
    EXPECT_EQ (findBox(), nullptr);
    EXPECT_GE (findWindows<Box>().front()->getHeight(), 500);
}

TEST_F (ExportDialog, TheMenuOfThePictureOpensTheDialogToo)
{
    ASSERT_TRUE (window->click (window->getPicture(), EditorWindow::rightButton));
    ASSERT_TRUE (waitForMenu());
    auto* const row = findMenuRow (juce::translate ("Export as PNG"));
    ASSERT_NE (row, nullptr);
    ASSERT_TRUE (keyTo (*row));
    window->typeKey (Screen::returnKey);
    ASSERT_TRUE (waitForBox());

    ASSERT_TRUE (typeName ("menu.png"));
    ASSERT_TRUE (clickSave());
    ASSERT_TRUE (waitUntilClosed());
    EXPECT_TRUE (waitForPicture (folder.get().getChildFile ("menu.png")).isValid());
}

TEST_F (ExportDialog, AnExistingFileIsReplacedOnlyIfTheUserAgrees)
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

    EXPECT_TRUE (waitForPicture (file).isValid());
}

TEST_F (ExportDialog, CancellingWritesNothing)
{
    const auto before = getLastExport();
    ASSERT_TRUE (openDialog());
    ASSERT_TRUE (typeName ("never"));
    ASSERT_TRUE (clickButton ("Cancel"));
    ASSERT_TRUE (waitUntilClosed());

    window = nullptr; // finishes any pending write
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
    EXPECT_EQ (getLastExport(), before);
}

} // namespace
} // namespace mk::orlo::test
