// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests measuring in the explored picture by the real mouse, and the exports of the menu; needs a display.
#include "ExploreInWindow.h"

#include "orlo/display/ContextMenu.h"
#include "tests/support/FindComponents.h"
#include "tests/support/TemporaryFolder.h"

namespace mk::orlo::test
{
namespace
{

class MeasureInWindow : public ExploreInWindowTest
{
protected:
    /** Freezes and explores, with the mouse at a third of the picture. */
    void explore()
    {
        freeze();
        ASSERT_TRUE (window->moveTo (getPicture(), { getPicture().getWidth() / 3, getPicture().getHeight() / 3 }));
        turnWheel (wheelUp);
        ASSERT_TRUE (waitForExploring());
        ASSERT_TRUE (waitForPicture());
    }

    [[nodiscard]] juce::String getReadout() { return window->getContainer().getReadout().getText(); }
    [[nodiscard]] Exporter& getExporter() { return window->getContainer().getExporter(); }

    /** Lets go and waits until the window knows: else the mouse would still be held in the next one. */
    [[nodiscard]] bool letGo()
    {
        window->release();
        return pumpUntil ([] { return ! juce::Desktop::getInstance().getMainMouseSource().isDragging(); });
    }

    /** Lets the exports write to this file without a dialog. */
    void writeTo (const juce::File& file)
    {
        getExporter().chooseFile =
            [file] (const juce::String&, const juce::String&, const std::function<void (const juce::File&)>& onChosen)
        { onChosen (file); };
    }

    TemporaryFolder folder;
};

TEST_F (MeasureInWindow, HoldingTheMouseShowsFrequencyLevelAndTime)
{
    explore();
    EXPECT_FALSE (getReadout().contains ("dB"));
    window->press();
    ASSERT_TRUE (pumpUntil ([this] { return getReadout().contains ("dB  -"); })) << getReadout();
    EXPECT_TRUE (getReadout().endsWith ("s"));
    EXPECT_TRUE (getReadout().contains ("Hz"));

    // The second point shows the difference.
    ASSERT_TRUE (window->moveTo (getPicture(), { getPicture().getWidth() / 2, getPicture().getHeight() / 2 }));
    ASSERT_TRUE (pumpUntil ([this] { return getReadout().startsWith ("+"); })) << getReadout();
    EXPECT_TRUE (getReadout().contains ("cents ("));
    EXPECT_TRUE (getReadout().endsWith ("dB"));
    ASSERT_TRUE (letGo());
}

TEST_F (MeasureInWindow, TheRunningPictureKeepsItsReadout)
{
    ASSERT_TRUE (window->moveTo (getPicture(), { getPicture().getWidth() / 3, getPicture().getHeight() / 3 }));
    window->press();
    ASSERT_TRUE (pumpUntil ([this] { return getReadout().contains ("Hz"); }));
    EXPECT_FALSE (getReadout().contains ("dB"));
    ASSERT_TRUE (letGo());
}

TEST_F (MeasureInWindow, AKeyCopiesWhatIsMeasured)
{
    explore();
    window->press();
    ASSERT_TRUE (pumpUntil ([this] { return getReadout().contains ("dB  -"); }));
    const auto text = getReadout();
    ASSERT_TRUE (letGo());

    const juce::KeyPress copy ('c', juce::ModifierKeys::commandModifier, 0);
    EXPECT_TRUE (getPicture().keyPressed (copy));
    EXPECT_EQ (juce::SystemClipboard::getTextFromClipboard(), text);

    // Without a measurement the key stays with the host.
    ASSERT_TRUE (getExploration().stop());
    EXPECT_FALSE (getPicture().keyPressed (copy));
}

TEST_F (MeasureInWindow, TheExportsGetWhatIsOnView)
{
    explore();
    const auto subject = getExploration().findSubject();
    ASSERT_TRUE (subject);
    EXPECT_EQ (subject->request.start, getTimes().getStart());
    EXPECT_EQ (subject->request.length, getTimes().getLength());
    EXPECT_EQ (subject->sound, getExplorer().getSound());
    EXPECT_EQ (subject->request.hop.windowSize, getExplorer().getSettings().hop.windowSize);

    // A picture is exported through the dialog, by keys.
    writeTo (folder.get().getChildFile ("a.png"));
    window->getContainer().carryOut (contextMenu::exportStill);
    auto& dialog = getExporter().getDialog();
    ASSERT_TRUE (pumpUntil ([&] { return dialog.getWidthField().hasKeyboardFocus (true); }));
    dialog.getWidthField().setText ("400");
    dialog.getHeightField().setText ("300");
    window->typeKey (Screen::returnKey);
    ASSERT_TRUE (pumpUntil ([this] { return folder.get().getChildFile ("a.png").existsAsFile(); }, 60.0));
    EXPECT_EQ (juce::ImageFileFormat::loadFrom (folder.get().getChildFile ("a.png")).getBounds(),
               juce::Rectangle<int> (400, 300));
}

TEST_F (MeasureInWindow, ThePictureThatStandsStillCanBeExportedWithoutExploring)
{
    freeze();
    const auto subject = getExploration().findSubject();
    ASSERT_TRUE (subject);
    EXPECT_GT (subject->request.length, 0.0);

    writeTo (folder.get().getChildFile ("a.wav"));
    window->getContainer().carryOut (contextMenu::saveVisibleSound);
    EXPECT_TRUE (pumpUntil ([this] { return folder.get().getChildFile ("a.wav").existsAsFile(); }, 60.0));
    EXPECT_FALSE (getExplorer().isExploring());
}

} // namespace
} // namespace mk::orlo::test
