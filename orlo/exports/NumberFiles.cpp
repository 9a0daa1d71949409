// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NumberFiles.h"

#include "orlo/stills/NpyWriter.h"
#include "orlo/stills/ReassignedPoints.h"
#include "orlo/stills/StillPlan.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace mk::orlo
{
namespace
{
// Lines are collected before they are written.
constexpr size_t blockBytes = 1 << 16;

/** Appends a number with so many decimals. Not by the C library, which would write a comma where the host has set such
    a locale. */
void append (std::string& text, double value, int decimals)
{
    std::int64_t power = 1;

    for (int i = 0; i < decimals; ++i)
        power *= 10;

    const auto scaled = std::int64_t (std::llround (value * double (power)));

    if (scaled < 0)
        text += '-';

    std::array<char, 24> digits;
    const auto magnitude = std::abs (scaled);
    const auto whole = std::to_chars (digits.begin(), digits.end(), magnitude / power);
    text.append (digits.data(), whole.ptr);
    text += '.';

    const auto fraction = std::to_chars (digits.begin(), digits.end(), magnitude % power);
    text.append (size_t (decimals) - size_t (fraction.ptr - digits.data()), '0');
    text.append (digits.data(), fraction.ptr);
}
} // namespace

void writeLevels (const StillPicture& picture, juce::OutputStream& stream)
{
    writeNpyHeader (picture.getHeight(), picture.getWidth(), stream);

    for (int y = 0; y < picture.getHeight(); ++y)
        stream.write (picture.getRow (y).data(), picture.getRow (y).size_bytes());
}

bool writePoints (const StillRequest& request,
                  float lowestDecibels,
                  juce::OutputStream& stream,
                  const std::function<bool (double done)>& progress)
{
    const auto plan = makeStillPlan (request);
    const auto rate = request.hop.sampleRate;
    const auto end = request.start + request.length;
    const auto numColumns = plan.getNumFrameColumns();
    ReassignedPoints points (request);
    std::string text = "time (s),frequency (Hz),level (dB)\n";

    for (std::int64_t i = 0; i < numColumns; ++i)
    {
        for (int part = 0; part < plan.framesPerColumn; ++part)
        {
            points.analyse (plan.getCentre (i - plan.margin, part));

            for (const auto& point : points.get())
                if (point.sample >= request.start && point.sample < end && point.decibels >= lowestDecibels)
                {
                    append (text, (point.sample - request.start) / rate, 6);
                    text += ',';
                    append (text, point.hertz, 3);
                    text += ',';
                    append (text, double (point.decibels), 2);
                    text += '\n';
                }
        }

        if (text.size() >= blockBytes || i + 1 == numColumns)
        {
            stream.write (text.data(), text.size());
            text.clear();
        }

        if (! progress (double (i + 1) / double (numColumns)))
            return false;
    }

    return true;
}

} // namespace mk::orlo
