// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include "plugin_core/style/Palette.h"
#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo::lookSheet
{
namespace
{
constexpr std::array sizes { 16, 20, 24, 32, 48, 60 };
constexpr int cell = 76;
constexpr int margin = 16;

class IconSheet final : public juce::Component
{
public:
    IconSheet()
    {
        setSize (2 * margin + cell * int (pluginCore::allIcons.size()), 2 * margin + cell * int (sizes.size()));
    }

    void paint (juce::Graphics& g) override
    {
        g.fillAll (juce::Colour (pluginCore::palette::window));

        for (size_t column = 0; column < pluginCore::allIcons.size(); ++column)
        {
            for (size_t row = 0; row < sizes.size(); ++row)
            {
                const auto place = juce::Rectangle<int> (cell, cell)
                                       .translated (margin + int (column) * cell, margin + int (row) * cell)
                                       .withSizeKeepingCentre (sizes[row], sizes[row]);
                pluginCore::drawIcon (
                    g, pluginCore::allIcons[column], place.toFloat(), juce::Colour (pluginCore::palette::text));
            }
        }
    }
};
} // namespace

std::unique_ptr<juce::Component> makeIconSheet() { return std::make_unique<IconSheet>(); }

} // namespace mk::orlo::lookSheet
