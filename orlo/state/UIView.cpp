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
const juce::Identifier concertPitchId { "CONCERT_PITCH" };
const juce::Identifier middleCId { "MIDDLE_C" };

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

    for (const auto& source :
         { cleanViewModeSource, cleanBoundsSource, normalBoundsSource, concertPitchSource, middleCSource })
        source->setTree (tree);
}

void UIView::valueTreeChildAdded (juce::ValueTree& changedParent, juce::ValueTree& child)
{
    if (changedParent == parent && child.hasType (viewType) && child != tree)
        bind();
}

} // namespace mk::orlo::data
