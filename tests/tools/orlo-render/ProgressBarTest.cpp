// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/ProgressBar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mk::orlo::test
{
using namespace render;

TEST (ProgressBar, ShowsABarAndPercents)
{
    EXPECT_EQ (ProgressBar::getText (0), "[........................................]   0 %");
    EXPECT_EQ (ProgressBar::getText (50), "[####################....................]  50 %");
    EXPECT_EQ (ProgressBar::getText (100), "[########################################] 100 %");
}

TEST (ProgressBar, WritesOnlyChangesAndClearsItsLineAtTheEnd)
{
    std::ostringstream output;
    const auto written = [&output] { return juce::String (output.str()); };
    {
        ProgressBar bar (output, true);
        bar.show (0.501);
        const auto once = "\r" + ProgressBar::getText (50);
        EXPECT_EQ (written(), once);
        bar.show (0.509);
        EXPECT_EQ (written(), once);
        bar.show (0.51);
        EXPECT_EQ (written(), once + "\r" + ProgressBar::getText (51));
    }
    EXPECT_TRUE (written().endsWith ("\r" + juce::String::repeatedString (" ", 48) + "\r"));
}

TEST (ProgressBar, WritesNothingWithoutATerminal)
{
    std::ostringstream output;
    {
        ProgressBar bar (output, false);
        bar.show (0.5);
    }
    EXPECT_EQ (output.str(), "");
}

} // namespace mk::orlo::test
