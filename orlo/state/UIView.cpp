// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UIView.h"

#include <algorithm>

namespace mk::orlo::data
{
namespace
{
const juce::Identifier viewType { "UIVIEW" };
const juce::Identifier cleanViewModeId { "CLEAN_VIEW_MODE" };
const juce::Identifier cleanBoundsId { "CLEAN_BOUNDS" };
const juce::Identifier normalBoundsId { "NORMAL_BOUNDS" };
const juce::Identifier concertPitchId { "CONCERT_PITCH" };
const juce::Identifier middleCId { "MIDDLE_C" };
const juce::Identifier exploredId { "EXPLORED" };
const juce::Identifier sourceId { "SOURCE" };

/** Whether a stored value reads as true. */
[[nodiscard]] bool isTrue (const juce::var& value) { return value.isBool() ? bool (value) : value.toString() == "1"; }
} // namespace

UIView::UIView (juce::ValueTree parentTree)
    : parent (std::move (parentTree)),
      cleanViewModeSource (new pluginCore::TreePropertySource (cleanViewModeId, false)),
      cleanBoundsSource (new pluginCore::TreePropertySource (cleanBoundsId, juce::String())),
      normalBoundsSource (new pluginCore::TreePropertySource (normalBoundsId, juce::String())),
      concertPitchSource (new pluginCore::TreePropertySource (concertPitchId, juce::String())),
      middleCSource (new pluginCore::TreePropertySource (middleCId, juce::String()))
{
    bind();
    parent.addListener (this);
}

UIView::~UIView() { parent.removeListener (this); }

void UIView::bind()
{
    tree = parent.getOrCreateChildWithName (viewType, nullptr);

    // A session may contain any text here, which a CachedValue<bool> would not read as isTrue() does.
    if (tree.hasProperty (cleanViewModeId))
        tree.setProperty (cleanViewModeId, isTrue (tree[cleanViewModeId]), nullptr);

    cleanViewMode.referTo (tree, cleanViewModeId, nullptr, false);
    cleanBounds.referTo (tree, cleanBoundsId, nullptr, {});
    normalBounds.referTo (tree, normalBoundsId, nullptr, {});
    concertPitch.referTo (tree, concertPitchId, nullptr, {});
    middleC.referTo (tree, middleCId, nullptr, {});
    explored.referTo (tree, exploredId, nullptr, {});
    source.referTo (tree, sourceId, nullptr, {});

    for (const auto& valueSource :
         { cleanViewModeSource, cleanBoundsSource, normalBoundsSource, concertPitchSource, middleCSource })
        valueSource->setTree (tree);

    readSource();
}

void UIView::readSource()
{
    const auto found = std::find (sourceNames.begin(), sourceNames.end(), tree[sourceId].toString());
    currentSource = found != sourceNames.end() ? Source (found - sourceNames.begin()) : Source::mean;
}

void UIView::setSource (Source newSource) { source = sourceNames[size_t (newSource)]; }

void UIView::valueTreeChildAdded (juce::ValueTree& changedParent, juce::ValueTree& child)
{
    if (changedParent == parent && child.hasType (viewType) && child != tree)
        bind();
}

void UIView::valueTreePropertyChanged (juce::ValueTree& changedTree, const juce::Identifier& property)
{
    if (changedTree == tree && property == sourceId)
        readSource();
}

} // namespace mk::orlo::data
