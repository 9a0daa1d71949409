// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"

#include <memory>

namespace mk::orlo
{

/** The forward transform of complex numbers, X[k] = sum of x[n] exp (-2 pi i k n / size), not scaled.

    There is one implementation for each transform library, of which the build chooses one: ComplexTransformFftw.cpp,
    or ComplexTransformJuce.cpp for the system's transform on macOS and for systems without FFTW. Instances share no
    state but a lock inside the constructor and the destructor, so each thread may use its own.
*/
class ComplexTransform
{
public:
    /** Plans the transform and allocates its buffers.

        @param size  complex numbers, a power of two from 1 up */
    explicit ComplexTransform (int size);
    ~ComplexTransform();

    /** Where the numbers to transform are to be written: size pairs of a real and an imaginary part, zeros at first.
        run() leaves them as they are. */
    [[nodiscard]] float* getInput() noexcept { return input.data(); }

    /** Transforms the input. No lock, no allocation. */
    void run() noexcept;

    /** The result of run(): size pairs of a real and an imaginary part, and the first one once more. */
    [[nodiscard]] const float* getOutput() const noexcept { return output.data(); }

    /** Frees what the library keeps for planning, unless any instance exists in the process. A host that loads and
        unloads a plug-in, as every scan does, would otherwise lose that memory each time. Any thread. */
    static void freePlanningMemory() noexcept;

    ComplexTransform (const ComplexTransform&) = delete;
    ComplexTransform& operator= (const ComplexTransform&) = delete;

private:
    struct Plan;


    AlignedFloats input, output;
    std::unique_ptr<Plan> plan;
};

} // namespace mk::orlo
