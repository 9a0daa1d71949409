// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Measure.h"

#include <vector>

namespace mk::orlo::bench
{

/** Runs rows and prints their times and ratios.

    A ratio is the median of those of single rounds. In a round a program and its limit run one after the other for a
    few milliseconds each; every second round begins with the limit, so that neither always follows the other.
*/
class RatioReporter
{
public:
    /** Prints one row. */
    static void run (const std::string& name, const Program& program);
    static void run (const std::string& name, const Program& program, const Program& limit, double wanted);

    /** The middle one of the values, of which there is at least one. */
    [[nodiscard]] static double median (std::vector<double> values);
};

} // namespace mk::orlo::bench
