// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

namespace mk::orlo::test
{

/** The open windows of a kind. */
template <typename Type>
[[nodiscard]] std::vector<Type*> findWindows()
{
    auto& desktop = juce::Desktop::getInstance();
    std::vector<Type*> found;

    for (int i = 0; i < desktop.getNumComponents(); ++i)
        if (auto* const window = dynamic_cast<Type*> (desktop.getComponent (i)))
            found.push_back (window);

    return found;
}

/** The first component within another that fits; null if none does. */
template <typename Type, typename Condition>
[[nodiscard]] Type* findInside (juce::Component& parent, Condition condition)
{
    for (auto* const child : parent.getChildren())
    {
        if (auto* const candidate = dynamic_cast<Type*> (child); candidate != nullptr && condition (*candidate))
            return candidate;

        if (auto* const deeper = findInside<Type> (*child, condition))
            return deeper;
    }

    return nullptr;
}

/** The first component of a kind within another; null if there is none. */
template <typename Type>
[[nodiscard]] Type* findInside (juce::Component& parent)
{
    return findInside<Type> (parent, [] (const auto&) { return true; });
}

} // namespace mk::orlo::test
