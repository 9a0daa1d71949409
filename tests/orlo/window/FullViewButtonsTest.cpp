// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the buttons that float on the picture; needs a display.
#include "EditorInWindow.h"
#include "plugin_core/style/Palette.h"
#include "tests/support/FindComponents.h"
#include "tests/support/IconColour.h"
#include "tests/support/MouseCounter.h"
#include "tests/support/Transport.h"

namespace mk::orlo::test
{
namespace
{

using FullViewButtonsTest = EditorInWindowTest;

TEST_F (FullViewButtonsTest, AFrozenPictureShowsItsButtonsInFullViewOnly)
{
    auto& main = window->getMain();
    set (Params::id::freeze, 1.0f);
    pumpPending();
    EXPECT_FALSE (main.getFreezeButton().isVisible());
    EXPECT_FALSE (main.getExportButton().isVisible());

    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (pumpUntil ([&] { return main.getFreezeButton().isVisible() && main.getExportButton().isVisible(); }));
    EXPECT_GT (main.getExportButton().getY(), main.getFreezeButton().getBottom());
    EXPECT_EQ (getIconColour (main.getFreezeButton()), juce::Colour (pluginCore::palette::accent));

    ASSERT_TRUE (window->click (main.getFreezeButton()));
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::freeze) < 0.5f; }));
    EXPECT_TRUE (
        pumpUntil ([&] { return ! main.getFreezeButton().isVisible() && ! main.getExportButton().isVisible(); }));
}

TEST_F (FullViewButtonsTest, RightClicksAndCtrlClicksDoNothing)
{
    auto& main = window->getMain();
    set (Params::id::freeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    ASSERT_TRUE (window->moveToCentre (window->getPicture()));

    for (auto* const button : { &main.getViewButton(), &main.getFreezeButton(), &main.getExportButton() })
    {
        ASSERT_TRUE (pumpUntil ([button] { return button->isShowing(); })) << button->getTitle();
        const auto before = getState();
        const MouseCounter mouse (*button);

        ASSERT_TRUE (window->click (*button, EditorWindow::rightButton)) << button->getTitle();
        ASSERT_TRUE (pumpUntil ([&] { return mouse.numUp == 1; })) << button->getTitle();

        ASSERT_TRUE (holdModifier (Screen::controlKey, juce::ModifierKeys::ctrlModifier));
        ASSERT_TRUE (window->click (*button)) << button->getTitle();
        ASSERT_TRUE (pumpUntil ([&] { return mouse.numUp == 2; })) << button->getTitle();
        window->releaseKey();
        pumpPending();

        EXPECT_EQ (getState(), before) << button->getTitle();
        EXPECT_EQ (findOpenMenu(), nullptr) << button->getTitle();
        EXPECT_TRUE (findWindows<juce::FileChooserDialogBox>().empty()) << button->getTitle();
    }
}

TEST_F (FullViewButtonsTest, APauseByTheHostShowsOnlyTheExportButton)
{
    auto& main = window->getMain();
    set (Params::id::autoFreeze, 1.0f);
    processor.getUIView().cleanViewMode = true;
    runBlock (processor, true);
    ASSERT_TRUE (pumpUntil ([&] { return ! main.getSideBar().isVisible(); }));
    EXPECT_FALSE (main.getExportButton().isVisible());

    runBlock (processor, false);
    ASSERT_TRUE (processor.isAutoPaused());
    EXPECT_TRUE (pumpUntil ([&] { return main.getExportButton().isVisible(); }));
    EXPECT_FALSE (main.getFreezeButton().isVisible());
    EXPECT_EQ (main.getExportButton().getY(), main.getViewButton().getY()) << "in place of the freeze button";

    runBlock (processor, true);
    EXPECT_TRUE (pumpUntil ([&] { return ! main.getExportButton().isVisible(); }));
}

} // namespace
} // namespace mk::orlo::test
