// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ExportDialog.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class ExportDialogFields : public testing::Test
{
protected:
    ExportDialogFields()
    {
        parent.setLookAndFeel (&look);
        parent.setSize (1200, 700);
        parent.addChildComponent (dialog);
        dialog.onAccepted = [this] (const ExportSettings& settings) { accepted.push_back (settings); };
        dialog.setDefaultSize (1600, 1000);
        dialog.open();
    }

    ~ExportDialogFields() override { parent.setLookAndFeel (nullptr); }

    [[nodiscard]] bool press (int key) { return dialog.keyPressed (juce::KeyPress (key)); }

    PluginLookAndFeel look;
    juce::Component parent;
    ExportDialog dialog;
    std::vector<ExportSettings> accepted;
};

TEST_F (ExportDialogFields, GiveWhatIsTypedAndChosen)
{
    dialog.getWidthField().setText ("3000");
    dialog.getHeightField().setText ("2000");
    dialog.getTitleField().setText ("A title");
    dialog.getDarkButton().setToggleState (true, juce::sendNotificationSync);
    EXPECT_FALSE (dialog.getLightButton().getToggleState());
    EXPECT_TRUE (press (juce::KeyPress::returnKey));

    ASSERT_EQ (accepted.size(), 1u);
    EXPECT_EQ (accepted[0].width, 3000);
    EXPECT_EQ (accepted[0].height, 2000);
    EXPECT_EQ (accepted[0].title, "A title");
    EXPECT_TRUE (accepted[0].hasAxes);
    EXPECT_FALSE (accepted[0].isLight);
    EXPECT_FALSE (dialog.isVisible());
}

TEST_F (ExportDialogFields, RefuseSizesThatAreNotPossible)
{
    for (const auto& [width, height] :
         { std::pair { "", "1000" }, { "63", "1000" }, { "16385", "1000" }, { "1000", "8193" }, { "1000", "0" } })
    {
        dialog.getWidthField().setText (width);
        dialog.getHeightField().setText (height);
        EXPECT_FALSE (dialog.getSettings());
        EXPECT_TRUE (press (juce::KeyPress::returnKey));
        EXPECT_TRUE (dialog.isVisible());
    }

    EXPECT_TRUE (accepted.empty());
    dialog.getWidthField().setText ("16384");
    dialog.getHeightField().setText ("8192");
    EXPECT_TRUE (dialog.getSettings());
}

TEST_F (ExportDialogFields, EscapeClosesWithoutAnExport)
{
    EXPECT_TRUE (press (juce::KeyPress::escapeKey));
    EXPECT_FALSE (dialog.isVisible());
    EXPECT_TRUE (accepted.empty());
    EXPECT_FALSE (press ('x'));
}

TEST_F (ExportDialogFields, TitleAndPaperBelongToTheAxes)
{
    dialog.getAxesButton().setToggleState (false, juce::dontSendNotification);
    dialog.getAxesButton().onClick();
    EXPECT_FALSE (dialog.getTitleField().isEnabled());
    EXPECT_FALSE (dialog.getLightButton().isEnabled());
    EXPECT_FALSE (dialog.getSettings()->hasAxes);
}

TEST_F (ExportDialogFields, ASizeThatWasTypedStaysTheNextTime)
{
    EXPECT_EQ (dialog.getSettings()->width, 1600);
    dialog.setDefaultSize (1700, 1000);
    EXPECT_EQ (dialog.getSettings()->width, 1700);

    dialog.getWidthField().setText ("3000", true);
    ASSERT_TRUE (pumpUntil ([this] { return dialog.getSettings()->width == 3000; }));
    pumpPending();
    dialog.setDefaultSize (1600, 1000);
    EXPECT_EQ (dialog.getSettings()->width, 3000);
}

TEST_F (ExportDialogFields, AllControlsHaveNamesAndLieBesideEachOtherInTheDialog)
{
    for (const auto& [width, height] : { std::pair { 1200, 700 }, { 400, 300 }, { 3000, 1800 } })
    {
        parent.setSize (width, height);
        dialog.open();
        EXPECT_TRUE (parent.getLocalBounds().contains (dialog.getBounds()));

        for (auto* const child : dialog.getChildren())
        {
            EXPECT_TRUE (dialog.getLocalBounds().contains (child->getBounds())) << child->getTitle();
            EXPECT_FALSE (child->getBounds().isEmpty());

            if (child->getWantsKeyboardFocus())
            {
                EXPECT_TRUE (child->getTitle().isNotEmpty());
            }

            for (auto* const other : dialog.getChildren())
                EXPECT_TRUE (other == child || ! other->getBounds().intersects (child->getBounds()));
        }
    }
}

} // namespace
} // namespace mk::orlo::test
