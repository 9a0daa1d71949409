// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/PluginHeaderComponent.h"

#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
struct Header final : PluginHeaderComponent
{
    void timerCallback() override {}
    void changeListenerCallback (juce::ChangeBroadcaster*) override {}
    void buttonClicked (juce::Button*) override {}
    void presetFileLoaded (PresetsManager&, const juce::File&) override {}
    void presetDirtyChanged (PresetsManager&, bool dirty) override { isDirty = dirty; }

    bool isDirty = false;
};

TEST (PluginHeaderComponentTest, IsNotifiedOfPresetChanges)
{
    orlo::test::TestProcessor processor;
    Header header;
    processor.getPresetsManager().addListener (&header);
    processor.setDirty();
    EXPECT_TRUE (header.isDirty);
    processor.getPresetsManager().removeListener (&header);
}
} // namespace
} // namespace mk::pluginCore
