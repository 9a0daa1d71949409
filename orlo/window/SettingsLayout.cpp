// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsLayout.h"

namespace mk::orlo
{
namespace
{
// The panel that the design was made for.
constexpr float designWidth = 402.0f;
constexpr float designHeight = 1000.0f;

/** The distance between two neighbouring toggles, in widths of a toggle. */
constexpr float toggleStep = 1.1f;

struct Panel
{
    /** Scales bounds from the design to the panel. */
    [[nodiscard]] juce::Rectangle<int> place (float x, float y, float w, float h) const noexcept
    {
        return juce::Rectangle<float> (x / designWidth * width,
                                       y / designHeight * height,
                                       w / designWidth * width,
                                       h / designHeight * height)
            .toNearestInt();
    }

    const float width, height;
};
} // namespace

SettingsLayout SettingsLayout::forSize (int width, int height) noexcept
{
    const Panel panel { float (width), float (height) };
    SettingsLayout layout;

    layout.title = panel.place (21, 27, 307, 60);
    layout.presetsButton = panel.place (200, 36, 46, 46);

    layout.analysisHeading = panel.place (31, 119, 371, 40);
    layout.modeBar = panel.place (34, 175, 334, 60);
    layout.fftSizeLabel = panel.place (0, 251, 183, 56);
    layout.fftSizeBox = panel.place (199, 251, 169, 56);

    layout.displayHeading = panel.place (31, 347, 371, 40);
    layout.hiDPILabel = panel.place (150, 347, 40, 40);
    layout.drawModeBar = panel.place (34, 403, 278, 60);
    layout.autoFreezeToggle = panel.place (324, 403, 40, 56);
    layout.scaleLabel = panel.place (0, 479, 157, 56);
    layout.scaleBox = panel.place (173, 479, 123, 56);

    // The two toggles are aligned with the right end of the mode bar, independent of rounding.
    const auto toggle = panel.place (0, 479, 30, 56);
    const auto right = layout.modeBar.getRight();
    const auto step = juce::roundToInt (toggleStep * float (toggle.getWidth()));
    layout.rulerToggle = toggle.withX (right - toggle.getWidth());
    layout.keyboardToggle = toggle.withX (right - (step + toggle.getWidth()));

    layout.speedLabel = panel.place (0, 551, 157, 39);
    layout.speedSlider = panel.place (173, 551, 196, 39);
    layout.maxFreqLabel = panel.place (0, 602, 157, 39);
    layout.maxFreqSlider = panel.place (173, 602, 196, 39);
    layout.minFreqLabel = panel.place (0, 653, 157, 39);
    layout.minFreqSlider = panel.place (173, 653, 196, 39);

    layout.colourHeading = panel.place (31, 732, 371, 40);
    layout.colourBox = panel.place (34, 788, 253, 56);
    layout.arrows = panel.place (293, 794, 73, 44);
    layout.colourPreview = panel.place (34, 860, 334, 44);
    layout.floorSlider = panel.place (34, 912, 83, 39);
    layout.ceilingSlider = panel.place (284, 912, 83, 39);
    return layout;
}

} // namespace mk::orlo
