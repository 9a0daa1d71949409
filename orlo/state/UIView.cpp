// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UIView.h"

namespace mk::orlo::data
{
namespace
{
const juce::Identifier viewType { "UIVIEW" };
const juce::Identifier cleanViewModeId { "CLEAN_VIEW_MODE" };
const juce::Identifier cleanBoundsId { "CLEAN_BOUNDS" };
const juce::Identifier normalBoundsId { "NORMAL_BOUNDS" };
} // namespace

UIView::UIView (juce::ValueTree parentTree) : parent (std::move (parentTree))
{
    bind();
    parent.addListener (this);
}

UIView::~UIView() { parent.removeListener (this); }

void UIView::bind()
{
    tree = parent.getOrCreateChildWithName (viewType, nullptr);
    cleanViewMode.referTo (tree, cleanViewModeId, nullptr, false);
    cleanBounds.referTo (tree, cleanBoundsId, nullptr, {});
    normalBounds.referTo (tree, normalBoundsId, nullptr, {});
}

void UIView::valueTreeChildAdded (juce::ValueTree& changedParent, juce::ValueTree& child)
{
    if (changedParent == parent && child.hasType (viewType) && child != tree)
        bind();
}

} // namespace mk::orlo::data
