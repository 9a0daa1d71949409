// SPDX-License-Identifier: AGPL-3.0-or-later
#include "OggTail.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace mk::orlo::render
{
namespace
{
constexpr size_t headerSize = 27;
constexpr size_t flagsOffset = 5;
constexpr size_t numSegmentsOffset = 26;
constexpr int largestPage = int (headerSize) + 255 + 255 * 255;
constexpr juce::uint8 lastPageFlag = 4;

/** The page's length in bytes, header included; 0 if even its header is incomplete. */
[[nodiscard]] size_t getPageSize (const juce::uint8* page, size_t available)
{
    if (available < headerSize || available < headerSize + page[numSegmentsOffset])
        return 0;

    const auto* const segments = page + headerSize;
    const auto numSegments = size_t (page[numSegmentsOffset]);
    return headerSize + numSegments + std::accumulate (segments, segments + numSegments, size_t (0));
}
} // namespace

bool endsWithLastPage (juce::InputStream& stream)
{
    const auto position = stream.getPosition();

    // A range of twice the largest page contains at least one whole page, wherever the pages begin.
    const auto length = stream.getTotalLength();
    std::vector<juce::uint8> tail (size_t (std::min (length, juce::int64 { 2 } * largestPage)));
    stream.setPosition (length - juce::int64 (tail.size()));

    const auto got = stream.read (tail.data(), int (tail.size()));
    stream.setPosition (position);

    if (got != int (tail.size()))
        return false;

    constexpr std::array<juce::uint8, 4> pageMark { 'O', 'g', 'g', 'S' };
    const auto last = std::find_end (tail.begin(), tail.end(), pageMark.begin(), pageMark.end());
    const auto available = size_t (tail.end() - last);
    const auto size = getPageSize (tail.data() + (last - tail.begin()), available);

    return size > 0 && size <= available && (last[flagsOffset] & lastPageFlag) != 0;
}

} // namespace mk::orlo::render
