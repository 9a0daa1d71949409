// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/editor/PluginEditor.h"

namespace mk::orlo::test
{

/** An empty window of the framework. */
class TestPluginEditor final : public pluginCore::PluginEditor
{
public:
    TestPluginEditor (pluginCore::PluginProcessor& processorToEdit, double aspectRatioToUse)
        : PluginEditor (processorToEdit), aspectRatio (aspectRatioToUse)
    {
        setSize (20, 20);
    }

    [[nodiscard]] SizeLimits getSizeLimits() const override { return { 10, 10, 3000, 2000 }; }
    [[nodiscard]] double getFixedAspectRatio() const override { return aspectRatio; }
    void resized() override {}

    double aspectRatio;

    using PluginEditor::getCornerResizer;
};

} // namespace mk::orlo::test
