// SPDX-License-Identifier: AGPL-3.0-or-later
#include "IconArt.h"

namespace mk::pluginCore
{
namespace
{
using Kind = IconMark::Kind;

template <Kind kind, typename... Values>
[[nodiscard]] constexpr IconMark mark (Values... values) noexcept
{
    return { kind, sizeof...(values), { float (values)... } };
}

template <typename... Values>
[[nodiscard]] constexpr IconMark line (Values... values) noexcept
{
    return mark<Kind::line> (values...);
}

template <typename... Values>
[[nodiscard]] constexpr IconMark diagonal (Values... values) noexcept
{
    return mark<Kind::diagonal> (values...);
}

constexpr std::array settings { line (3, 7, 11, 7),  mark<Kind::circle> (14, 7, 3),  line (17, 7, 21, 7),
                                line (3, 17, 7, 17), mark<Kind::circle> (10, 17, 3), line (13, 17, 21, 17) };

// Six arms at 60 degrees to each other, each with two small branches.
constexpr std::array freeze {
    line (12, 3, 12, 21),
    diagonal (4.2, 7.5, 19.8, 16.5),
    diagonal (19.8, 7.5, 4.2, 16.5),
    diagonal (9.5, 4.4, 12, 6.6, 14.5, 4.4),
    diagonal (9.5, 19.6, 12, 17.4, 14.5, 19.6),
    diagonal (17.35, 6.05, 16.7, 9.3, 19.85, 10.35),
    diagonal (6.65, 6.05, 7.3, 9.3, 4.15, 10.35),
    diagonal (17.35, 17.95, 16.7, 14.7, 19.85, 13.65),
    diagonal (6.65, 17.95, 7.3, 14.7, 4.15, 13.65),
};

constexpr std::array exportPicture { line (12, 15, 12, 4),
                                     line (7, 8, 12, 3, 17, 8),
                                     line (3, 15, 3, 20, 21, 20, 21, 15) };

constexpr std::array about { mark<Kind::circle> (12, 12, 9), line (12, 11, 12, 16), mark<Kind::dot> (12, 7.75, 1.35) };

constexpr std::array viewStandard { mark<Kind::box> (3, 4, 18, 16, 2), line (9, 4, 9, 20) };

constexpr std::array viewFull { line (3, 9, 3, 4, 8, 4),
                                line (16, 4, 21, 4, 21, 9),
                                line (21, 15, 21, 20, 16, 20),
                                line (8, 20, 3, 20, 3, 15) };

constexpr std::array presets { mark<Kind::dot> (4, 6, 1.6), line (9, 6, 21, 6),           mark<Kind::dot> (4, 12, 1.6),
                               line (9, 12, 21, 12),        mark<Kind::dot> (4, 18, 1.6), line (9, 18, 21, 18) };

constexpr std::array arrowLeft { line (15, 6, 9, 12, 15, 18) };
constexpr std::array arrowRight { line (9, 6, 15, 12, 9, 18) };
constexpr std::array arrowUp { line (6, 15, 12, 9, 18, 15) };
constexpr std::array arrowDown { line (6, 9, 12, 15, 18, 9) };

constexpr std::array ruler { mark<Kind::box> (6, 2, 12, 20, 2),
                             line (6, 7, 10, 7),
                             line (6, 12, 12, 12),
                             line (6, 17, 10, 17) };

constexpr std::array keyboard { mark<Kind::box> (3, 4, 18, 16, 2),
                                line (9, 13, 9, 20),
                                line (15, 13, 15, 20),
                                mark<Kind::block> (7.5, 4, 3, 9),
                                mark<Kind::block> (13.5, 4, 3, 9) };

constexpr std::array autoPause { mark<Kind::circle> (12, 12, 9), line (10, 9, 10, 15), line (14, 9, 14, 15) };

constexpr std::array folder { mark<Kind::polygon> (3, 5, 9, 5, 12, 8, 21, 8, 21, 19, 3, 19) };
constexpr std::array document { mark<Kind::box> (5, 3, 14, 18, 2), line (9, 9, 15, 9), line (9, 13, 15, 13) };
constexpr std::array tick { line (5, 12, 10, 17, 19, 8) };
constexpr std::array close { line (6, 6, 18, 18), line (18, 6, 6, 18) };
} // namespace

std::span<const IconMark> getIconArt (Icon icon) noexcept
{
    switch (icon)
    {
        case Icon::settings: return settings;
        case Icon::freeze: return freeze;
        case Icon::exportPicture: return exportPicture;
        case Icon::about: return about;
        case Icon::viewStandard: return viewStandard;
        case Icon::viewFull: return viewFull;
        case Icon::presets: return presets;
        case Icon::arrowLeft: return arrowLeft;
        case Icon::arrowRight: return arrowRight;
        case Icon::arrowUp: return arrowUp;
        case Icon::arrowDown: return arrowDown;
        case Icon::ruler: return ruler;
        case Icon::keyboard: return keyboard;
        case Icon::autoPause: return autoPause;
        case Icon::folder: return folder;
        case Icon::document: return document;
        case Icon::tick: return tick;
        case Icon::close: return close;
    }

    return {};
}

} // namespace mk::pluginCore
