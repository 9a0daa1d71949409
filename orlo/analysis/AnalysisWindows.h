// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "WindowType.h"

#include <vector>

namespace mk::orlo
{

/** The windows of time-frequency reassignment, each of the same number of samples.

    The method is that of Auger and Flandrin (1995): the transform under the plain window gives the
    amplitude, the one under its derivative the frequency, the one under its time ramp the time. The fourth window tells lines and clicks apart, see getFrequencySlope().
*/
struct AnalysisWindows
{
    std::vector<float> plain;          /**< Mean 1 for the types below gaussian; not normalised above. */
    std::vector<float> derivative;     /**< Change of the plain window per sample. */
    std::vector<float> ramp;           /**< The plain window times the distance in samples from length / 2. */
    std::vector<float> rampDerivative; /**< The derivative times the same distance. */

    /** Builds all of them for a length of at least 2 samples. Allocates.
        A type value from 9 up is taken as gaussianNumericDerivative. */
    void rebuild (int length, int type);
};

/** The derivative of a window by central differences, in units per sample, of the window's length.

    The straight line between the window's ends is subtracted first and its slope is added afterwards, so
    that a window that does not end at zero keeps a whole step at its edges, not half of one. A window
    of fewer than two samples gives an empty derivative.
*/
[[nodiscard]] std::vector<float> differentiateWindow (const std::vector<float>& window);

} // namespace mk::orlo
