// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColourMapPreviewComponent.h"

#include <optional>

namespace mk::orlo
{

/** An entry of the list of colour maps: the map's colours and its name. [message thread] */
class ColourMapMenuItem : public juce::PopupMenu::CustomComponent
{
public:
    /** A menu in a window of its own has no editor among its parents, so the entry takes its size from the
        editor of the box. */
    ColourMapMenuItem (int mapIndex, juce::Component& box);

    [[nodiscard]] ColourMapPreviewComponent& getPreview() noexcept { return preview; }

    /** Height and width of an entry in a plug-in window of the given width. */
    [[nodiscard]] static juce::Rectangle<int> getIdealBounds (std::optional<int> editorWidth) noexcept;

    void getIdealSize (int& idealWidth, int& idealHeight) override;
    void resized() override;
    void paintOverChildren (juce::Graphics& g) override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    ColourMapPreviewComponent preview;
    const juce::Component::SafePointer<juce::Component> box;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ColourMapMenuItem)
};

} // namespace mk::orlo
