// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/editor/EditorSize.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace pluginCore;
using Size = juce::Point<int>;

[[nodiscard]] juce::Array<juce::Displays::Display> makeDisplays (std::initializer_list<juce::Rectangle<int>> areas)
{
    juce::Array<juce::Displays::Display> displays;

    for (const auto& area : areas)
    {
        juce::Displays::Display display;
        display.totalArea = display.userArea = area;
        displays.add (display);
    }

    return displays;
}

TEST (EditorDisplay, IsTheOneWithThePoint)
{
    const auto displays = makeDisplays ({ { 0, 0, 1000, 800 }, { 1000, 0, 500, 500 } });
    EXPECT_EQ (editorSize::findDisplay (displays, { 999, 10 }), &displays.getReference (0));
    EXPECT_EQ (editorSize::findDisplay (displays, { 1000, 10 }), &displays.getReference (1));
}

TEST (EditorDisplay, IsTheFirstOfOverlappingOnes)
{
    const auto displays = makeDisplays ({ { 0, 0, 1000, 800 }, { 0, 0, 500, 500 } });
    EXPECT_EQ (editorSize::findDisplay (displays, { 10, 10 }), &displays.getReference (0));
}

TEST (EditorDisplay, IsTheNearestIfNoneHasThePoint)
{
    const auto displays = makeDisplays ({ { 0, 0, 100, 100 }, { 1000, 0, 100, 100 } });
    EXPECT_EQ (editorSize::findDisplay (displays, { 400, 50 }), &displays.getReference (0));
    EXPECT_EQ (editorSize::findDisplay (displays, { 700, 50 }), &displays.getReference (1));
    EXPECT_EQ (editorSize::findDisplay (displays, { 550, 50 }), &displays.getReference (1)) << "later if equally near";
}

TEST (EditorDisplay, IsNoneOfAnEmptyList) { EXPECT_EQ (editorSize::findDisplay ({}, { 0, 0 }), nullptr); }

TEST (EditorSize, MayBeDraggedToTheDisplaysWidthAndAlmostItsHeight)
{
    EXPECT_EQ (editorSize::getLargest ({ 100, 100 }, { 1920, 1080 }), (Size { 1920, 990 }));
    EXPECT_EQ (editorSize::getLargest ({ 2000, 1000 }, { 1920, 1080 }), (Size { 2000, 1000 }))
        << "never below the minimum";
}

TEST (EditorSize, ThatFitsStaysAsItIs)
{
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1920, 1080 }, { 1920, 1080 }, 0.0), (Size { 1920, 1080 }));
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 10, 10 }, { 1920, 1080 }, 1.818), (Size { 10, 10 }));
}

TEST (EditorSize, TooWideBecomesTenPixelsNarrowerThanTheDisplay)
{
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1921, 1000 }, { 1920, 1080 }, 2.0), (Size { 1910, 955 }));
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1921, 1000 }, { 1920, 1080 }, 1.818), (Size { 1910, 1051 })) << "rounded";
}

TEST (EditorSize, TooHighBecomesAHundredPixelsLowerThanTheDisplay)
{
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1900, 1081 }, { 1920, 1080 }, 1.5), (Size { 1470, 980 }));
}

TEST (EditorSize, WithoutARatioChangesOnlyAlongTheAxisThatDoesNotFit)
{
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1921, 500 }, { 1920, 1080 }, 0.0), (Size { 1910, 500 }));
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 500, 1081 }, { 1920, 1080 }, 0.0), (Size { 500, 980 }));
    EXPECT_EQ (editorSize::fitIntoDisplay ({ 1921, 1081 }, { 1920, 1080 }, 0.0), (Size { 1910, 980 }));
}

} // namespace
} // namespace mk::orlo::test
