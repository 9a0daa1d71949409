// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

// gcc defines macros, clang has a function for its preprocessor.
#if ! defined(__has_feature)
    #define __has_feature(name) 0
#endif

namespace mk::orlo::test
{

/** What the program is built with. A sanitizer makes a test several times slower, so some play less with it, or nothing
    where it could find nothing. */
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
constexpr bool hasAddressSanitizer = true;
#else
constexpr bool hasAddressSanitizer = false;
#endif

#if defined(__SANITIZE_THREAD__) || __has_feature(thread_sanitizer)
constexpr bool hasThreadSanitizer = true;
#else
constexpr bool hasThreadSanitizer = false;
#endif

/** About how many times longer the product's code takes. A test that repeats the same on one thread may repeat it so many
    times less, since a sanitizer learns little from repetitions. */
constexpr int slowdown = hasThreadSanitizer ? 10 : hasAddressSanitizer ? 3 : 1;

} // namespace mk::orlo::test
