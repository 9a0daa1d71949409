// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** Notes which parts of a component, or of those in it, are to be painted again. Paints nothing itself. */
class RepaintRecorder final : public juce::CachedComponentImage
{
public:
    /** Attaches a recorder to the component, which owns it from then on and must not be painted through a parent. */
    [[nodiscard]] static RepaintRecorder& attachTo (juce::Component& component)
    {
        auto recorder = std::make_unique<RepaintRecorder> (component);
        auto& attached = *recorder;
        component.setCachedComponentImage (recorder.release());
        return attached;
    }

    explicit RepaintRecorder (juce::Component& componentToWatch) : component (componentToWatch) {}

    /** The areas to be painted again, in the component's units, since the last call. */
    [[nodiscard]] juce::RectangleList<int> take()
    {
        auto taken = areas;
        areas.clear();
        return taken;
    }

    bool invalidate (const juce::Rectangle<int>& area) override
    {
        areas.add (area);
        return true;
    }

    bool invalidateAll() override { return invalidate (component.getLocalBounds()); }
    void releaseResources() override {}
    void paint (juce::Graphics&) override {}

private:
    juce::Component& component;
    juce::RectangleList<int> areas;

    JUCE_DECLARE_NON_COPYABLE (RepaintRecorder)
};

} // namespace mk::orlo::test
