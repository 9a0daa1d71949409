// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LeadingInteger.h"

#include <limits>

namespace mk::pluginCore
{

juce::int64 parseLeadingInteger (const juce::String& text)
{
    using Limits = std::numeric_limits<juce::int64>;

    auto next = text.getCharPointer().findEndOfWhitespace();
    const auto isNegative = *next == '-';

    if (isNegative || *next == '+')
        ++next;

    juce::int64 number = 0;

    for (; *next >= '0' && *next <= '9'; ++next)
    {
        const auto digit = juce::int64 (*next - '0');

        if (number > (Limits::max() - digit) / 10)
            return isNegative ? Limits::min() : Limits::max();

        number = number * 10 + digit;
    }

    return isNegative ? -number : number;
}

} // namespace mk::pluginCore
