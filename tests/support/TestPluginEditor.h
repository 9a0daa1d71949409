// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/editor/PluginEditor.h"

namespace mk::orlo::test
{

/** An empty window of the framework. */
class TestPluginEditor final : public pluginCore::PluginEditor
{
public:
    TestPluginEditor (pluginCore::PluginProcessor& processorToEdit,
                      double aspectRatioToUse,
                      pluginCore::UpdateEnvironment updates = pluginCore::UpdateEnvironment::makeReal())
        : PluginEditor (processorToEdit, std::move (updates)), aspectRatio (aspectRatioToUse)
    {
        setSize (20, 20);
    }

    [[nodiscard]] SizeLimits getSizeLimits() const override { return { 10, 10, 3000, 2000 }; }
    [[nodiscard]] double getFixedAspectRatio() const override { return aspectRatio; }
    void resized() override {}

    double aspectRatio;

    /** The displays that the window sees; the system's displays if null. */
    const juce::Array<juce::Displays::Display>* displays = nullptr;

    using PluginEditor::getCornerResizer;

private:
    [[nodiscard]] const juce::Array<juce::Displays::Display>& getDisplays() const override
    {
        return displays != nullptr ? *displays : PluginEditor::getDisplays();
    }
};

} // namespace mk::orlo::test
