// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>
#include <ostream>
#include <vector>

namespace mk::orlo::test
{

/** What the user sees of a menu's row. The id of a row that opens a submenu, and of a separator, is 0. */
struct MenuRow
{
    int id = 0;
    juce::String text;
    bool isEnabled = true;
    bool isTicked = false;

    [[nodiscard]] static MenuRow separator() { return { 0, "---" }; }

    [[nodiscard]] bool operator== (const MenuRow&) const = default;
};

inline std::ostream& operator<< (std::ostream& stream, const MenuRow& row)
{
    return stream << row.id << " \"" << row.text << "\"" << (row.isEnabled ? "" : " disabled")
                  << (row.isTicked ? " ticked" : "");
}

/** All rows of a menu from top to bottom. The rows of a submenu follow the one that opens it. */
[[nodiscard]] inline std::vector<MenuRow> collectRows (const juce::PopupMenu& menu)
{
    std::vector<MenuRow> rows;

    for (juce::PopupMenu::MenuItemIterator i (menu, true); i.next();)
    {
        const auto& item = i.getItem();
        rows.push_back (item.isSeparator
                            ? MenuRow::separator()
                            : MenuRow { std::max (item.itemID, 0), item.text, item.isEnabled, item.isTicked });
    }

    return rows;
}

/** The row with the given id, in the menu or in a submenu. */
[[nodiscard]] inline std::optional<MenuRow> findRow (const juce::PopupMenu& menu, int id)
{
    for (const auto& row : collectRows (menu))
        if (row.id == id)
            return row;

    return std::nullopt;
}

} // namespace mk::orlo::test
