// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MainLayout.h"

namespace mk::orlo
{
namespace
{
constexpr float sideBarPerWidth = 0.05f;
constexpr float settingsPanelPerWidth = 0.23f;
constexpr int narrowestSideBar = 15;
constexpr int smallestButton = 30;
} // namespace

MainLayout layOutMain (const MainLayoutInput& input) noexcept
{
    MainLayout layout;
    const auto unit = juce::jmax (narrowestSideBar, int (float (input.width) * sideBarPerWidth));
    const auto button = juce::jmax (smallestButton, unit * 4 / 6);
    const auto pad = button / 7;
    const auto gap = unit / 6;

    auto freeWidth = juce::jmax (0, input.width - 2 * pad);
    const auto freeHeight = juce::jmax (0, input.height - 2 * pad);

    for (const auto isStripOn : { input.isRulerOn, input.isKeyboardOn })
        if (isStripOn)
            freeWidth -= juce::jmin (button, freeWidth);

    const auto buttonWidth = juce::jmin (button, freeWidth);
    const auto buttonHeight = juce::jmin (button, freeHeight);

    layout.viewButton = { freeWidth + pad - buttonWidth, pad, buttonWidth, buttonHeight };
    layout.freezeButton = layout.viewButton.withX (gap);
    layout.exportButton = layout.freezeButton.translated (0, input.isFreezeButtonVisible ? gap + button : 0);

    auto rest = juce::Rectangle { input.width, input.height };
    layout.sideBar = rest.withWidth (juce::jmin (unit, input.width));

    if (! input.isFullView)
        rest.removeFromLeft (layout.sideBar.getWidth());

    layout.settingsPanel =
        rest.withWidth (juce::jmin (int (float (input.width) * settingsPanelPerWidth), rest.getWidth()));

    if (input.isSettingsPanelVisible)
        rest.removeFromLeft (layout.settingsPanel.getWidth());

    layout.spectrogram = rest;
    return layout;
}

} // namespace mk::orlo
