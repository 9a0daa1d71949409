// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColourTables.h"

#include <OrloColourData.h>

namespace mk::orlo::colourTables
{
namespace
{
constexpr size_t grayIndex = 0;
constexpr size_t firstTenPointMap = 1;
constexpr size_t firstTabulatedMap = 9;
constexpr int numGrayEntries = 2560;
constexpr int numTableEntries = 256;
constexpr size_t numPoints = 10;

using TenPoints = std::array<juce::uint32, numPoints>;

// Coarse samples of the published maps; the straight lines between the points are part of their look.
// clang-format off
constexpr std::array<TenPoints, firstTabulatedMap - firstTenPointMap> tenPointMaps {
    // cubehelix
    TenPoints { 0x000000, 0x1A1834, 0x15454E, 0x2B6F39, 0x747A32, 0xC1796F, 0xD38FC5, 0xC2C1F2, 0xCEEBEF, 0xFFFFFF },
    // viridis
    TenPoints { 0x440154, 0x472777, 0x3E4989, 0x30678D, 0x25828E, 0x1E9D88, 0x35B778, 0x6DCE58, 0xB5DD2B, 0xFDE724 },
    // plasma
    TenPoints { 0x0C0786, 0x45039E, 0x7200A8, 0x9B179E, 0xBC3685, 0xD7576B, 0xEC7853, 0xFA9F3A, 0xFCC926, 0xEFF821 },
    // inferno
    TenPoints { 0x000003, 0x1A0B40, 0x4A0B6A, 0x781C6D, 0xA42C60, 0xCF4446, 0xED6825, 0xFB9B06, 0xF7D13C, 0xFCFEA4 },
    // magma
    TenPoints { 0x000003, 0x170F3C, 0x430F75, 0x711F81, 0x9E2E7E, 0xCD3F70, 0xF0605D, 0xFD9567, 0xFEC98D, 0xFBFCBF },
    // cividis
    TenPoints { 0x00224D, 0x11356F, 0x3A486B, 0x575D6D, 0x6F7073, 0x898678, 0xA59B73, 0xC3B368, 0xE1CC54, 0xFDE737 },
    // rocket
    TenPoints { 0x020419, 0x291535, 0x541D4E, 0x831E5A, 0xB31657, 0xDC2C45, 0xF05F43, 0xF5936A, 0xF6C09F, 0xFAEADC },
    // mako
    TenPoints { 0x0B0305, 0x27182E, 0x3B2E5C, 0x3F488E, 0x36699F, 0x338AA6, 0x38A9AC, 0x55C9AC, 0xA1DFB9, 0xDEF4E4 },
};
// clang-format on

using Lists = std::array<juce::Array<juce::Colour>, numMaps>;

/** Reads entries from the packed tables and advances the pointer past them. */
[[nodiscard]] juce::Array<juce::Colour> unpack (const char*& packed, int numEntries)
{
    juce::Array<juce::Colour> list;
    list.ensureStorageAllocated (numEntries);

    for (int i = 0; i < numEntries; ++i, packed += 3)
        list.add (juce::Colour (juce::uint8 (packed[0]), juce::uint8 (packed[1]), juce::uint8 (packed[2])));

    return list;
}

[[nodiscard]] Lists makeLists()
{
    static_assert (OrloColourData::colour_maps_rgbSize
                   == 3 * (numGrayEntries + numTableEntries * int (numMaps - firstTabulatedMap)));

    Lists lists;
    const auto* packed = OrloColourData::colour_maps_rgb;
    lists[grayIndex] = unpack (packed, numGrayEntries);

    for (size_t i = firstTabulatedMap; i < numMaps; ++i)
        lists[i] = unpack (packed, numTableEntries);

    for (size_t i = 0; i < tenPointMaps.size(); ++i)
        for (const auto rgb : tenPointMaps[i])
            lists[firstTenPointMap + i].add (juce::Colour (0xff000000 | rgb));

    return lists;
}
} // namespace

const std::array<juce::Array<juce::Colour>, numMaps>& getAll()
{
    static const auto lists = makeLists();
    return lists;
}

} // namespace mk::orlo::colourTables
