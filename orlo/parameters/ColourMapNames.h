// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <array>

namespace mk::orlo
{

/** The names of the colour maps, in the order of the colourMap parameter. Not translated: sessions, hosts and
    command lines know the maps by them. */
inline constexpr std::array<const char*, 46> colourMapNames {
    "gray",    "cubehelix",  "viridis", "plasma",     "inferno",  "magma",    "cividis",   "rocket",
    "mako",    "turbo",      "amber",   "amethyst",   "apple",    "arctic",   "bubblegum", "chroma",
    "cosmic",  "dusk",       "eclipse", "ember",      "emerald",  "fall",     "flamingo",  "freeze",
    "gem",     "ghostlight", "gothic",  "horizon",    "jungle",   "lavender", "lilac",     "neon",
    "nuclear", "ocean",      "pepper",  "rainforest", "sapphire", "savanna",  "sepia",     "sunburst",
    "swamp",   "torch",      "toxic",   "tree",       "tropical", "voltage"
};

} // namespace mk::orlo
