// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include <array>

namespace mk::orlo::lookSheet
{
namespace
{
struct Entry
{
    const char* text;
    bool isActive = true;
    bool isHighlighted = false;
    bool isTicked = false;
    bool hasSubMenu = false;
};

constexpr std::array entries { Entry { "Freeze" },
                               Entry { "Export as PNG", false },
                               Entry { "" },
                               Entry { "Switch to Full View", true, true },
                               Entry { "Hide Piano", true, false, true },
                               Entry { "Show Ruler" },
                               Entry { "" },
                               Entry { "Presets", true, false, false, true } };

constexpr int itemHeight = 46;
constexpr int menuWidth = 340;
constexpr int margin = 40;

/** A menu painted as if it were open, over a bright ground, so that its corners and shadows can be seen. */
class MenuSheet final : public juce::Component
{
public:
    MenuSheet() { setSize (menuWidth + 2 * margin, 520); }

    void paint (juce::Graphics& g) override
    {
        auto& style = getLookAndFeel();
        g.setGradientFill (juce::ColourGradient::vertical (
            juce::Colours::darkmagenta, 0.0f, juce::Colours::orange, float (getHeight())));
        g.fillAll();

        const auto border = style.getPopupMenuBorderSize();
        auto area = getLocalBounds().reduced (margin);
        const juce::Graphics::ScopedSaveState state (g);
        g.setOrigin (area.getPosition());
        style.drawPopupMenuBackground (g, area.getWidth(), area.getHeight());
        area = area.withZeroOrigin().reduced (border);
        style.drawPopupMenuSectionHeader (g, area.removeFromTop (itemHeight), "Spectrogram");

        for (const auto& entry : entries)
        {
            const auto isSeparator = *entry.text == 0;
            int width = 0, height = 0;
            style.getIdealPopupMenuItemSize (entry.text, isSeparator, itemHeight, width, height);
            style.drawPopupMenuItem (g,
                                     area.removeFromTop (height),
                                     isSeparator,
                                     entry.isActive,
                                     entry.isHighlighted,
                                     entry.isTicked,
                                     entry.hasSubMenu,
                                     entry.text,
                                     {},
                                     nullptr,
                                     nullptr);
        }
    }
};
} // namespace

std::unique_ptr<juce::Component> makeMenuSheet() { return std::make_unique<MenuSheet>(); }

} // namespace mk::orlo::lookSheet
