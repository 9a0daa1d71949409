// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/Source.h"
#include "plugin_core/state/TreePropertySource.h"

#include <juce_data_structures/juce_data_structures.h>

namespace mk::orlo::data
{

/** The state of the window that a session keeps. Lives in the processor, so that it survives the editor.
    [message thread] */
class UIView final : private juce::ValueTree::Listener
{
public:
    /** Finds or makes the child "UIVIEW" of the parent. */
    explicit UIView (juce::ValueTree parent);
    ~UIView() override;

    /** Finds or makes the child again. Call it when the parent's content may have been replaced; a child
        that is added later is bound automatically. */
    void bind();

    juce::CachedValue<bool> cleanViewMode;        /**< CLEAN_VIEW_MODE: Full View is on. */
    juce::CachedValue<juce::String> cleanBounds;  /**< CLEAN_BOUNDS: the last bounds of Full View, "0 0 W H". */
    juce::CachedValue<juce::String> normalBounds; /**< NORMAL_BOUNDS: the same of Standard View. */
    juce::CachedValue<juce::String> concertPitch; /**< CONCERT_PITCH: see TuningSettings. */
    juce::CachedValue<juce::String> middleC;      /**< MIDDLE_C: see TuningSettings. */

    /** EXPLORED: the range that is explored, as "START LENGTH" in seconds from the end of the kept sound; empty while none
        is. A window that opens on a frozen picture goes on there. */
    juce::CachedValue<juce::String> explored;

    juce::CachedValue<juce::String> source; /**< SOURCE: one of sourceNames; another text is the mean. */

    [[nodiscard]] Source getSource() const noexcept { return currentSource; }
    void setSource (Source newSource);

    /** All but the source and the explored range as values to listen to. They keep referring to the current session's view when another session is
        loaded, and notify asynchronously. */
    [[nodiscard]] juce::Value getCleanViewModeValue() const { return juce::Value (cleanViewModeSource.get()); }
    [[nodiscard]] juce::Value getCleanBoundsValue() const { return juce::Value (cleanBoundsSource.get()); }
    [[nodiscard]] juce::Value getNormalBoundsValue() const { return juce::Value (normalBoundsSource.get()); }
    [[nodiscard]] juce::Value getConcertPitchValue() const { return juce::Value (concertPitchSource.get()); }
    [[nodiscard]] juce::Value getMiddleCValue() const { return juce::Value (middleCSource.get()); }

private:
    void valueTreeChildAdded (juce::ValueTree&, juce::ValueTree&) override;
    void valueTreePropertyChanged (juce::ValueTree&, const juce::Identifier&) override;
    void readSource();

    using SourcePtr = juce::ReferenceCountedObjectPtr<pluginCore::TreePropertySource>;

    juce::ValueTree parent, tree;
    Source currentSource = Source::mean; // read at every tick of the view, so the text is parsed only when it changes
    const SourcePtr cleanViewModeSource, cleanBoundsSource, normalBoundsSource, concertPitchSource, middleCSource;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UIView)
};

} // namespace mk::orlo::data
