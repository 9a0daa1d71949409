// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** The window shapes: those of juce::dsp::WindowingFunction in its order, and two more. */
enum class WindowType
{
    rectangular = 0,
    triangular,
    hann, /**< The one that the product uses. */
    hamming,
    blackman,
    blackmanHarris,
    flatTop,
    kaiser,                   /**< Beta 5. */
    gaussian,                 /**< Standard deviation of a sixth of the length, exact derivative. */
    gaussianNumericDerivative /**< The same shape, differentiated like all others. */
};

} // namespace mk::orlo
