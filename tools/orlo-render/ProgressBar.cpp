// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ProgressBar.h"

namespace mk::orlo::render
{
namespace
{
constexpr int barWidth = 40;
} // namespace

ProgressBar::~ProgressBar()
{
    if (shownPercent >= 0)
        stream << "\r" << juce::String::repeatedString (" ", getText (100).length()).toStdString() << "\r"
               << std::flush;
}

void ProgressBar::show (double done)
{
    const auto percent = juce::jlimit (0, 100, int (done * 100.0));

    if (enabled && std::exchange (shownPercent, percent) != percent)
        stream << "\r" << getText (percent).toStdString() << std::flush;
}

juce::String ProgressBar::getText (int percent)
{
    const auto filled = percent * barWidth / 100;
    return "[" + juce::String::repeatedString ("#", filled) + juce::String::repeatedString (".", barWidth - filled)
           + "] " + juce::String (percent).paddedLeft (' ', 3) + " %";
}

} // namespace mk::orlo::render
