// SPDX-License-Identifier: AGPL-3.0-or-later
// What opening the preset menu costs with 2000 presets in 50 folders.
#include "orlo/AudioPluginAudioProcessor.h"
#include "plugin_core/presets/PresetMenu.h"

#include "benchmarks/support/Measure.h"

#include <memory>

namespace mk::orlo::bench
{
namespace
{
constexpr int numFolders = 50;
constexpr int numPresetsEach = 40;

/** A processor whose user has many presets, in a folder that goes with it. */
class Library
{
public:
    Library()
    {
        for (int folder = 0; folder < numFolders; ++folder)
        {
            const auto directory = root.getChildFile ("Folder " + juce::String (folder));
            directory.createDirectory();

            for (int preset = 0; preset < numPresetsEach; ++preset)
                directory.getChildFile ("Preset " + juce::String (preset) + ".mkpreset").replaceWithText ("x");
        }

        pluginCore::PresetFolders folders;
        folders.userFolder = root.getFullPathName();
        folders.fileExtension = ".mkpreset";
        processor = std::make_unique<AudioPluginAudioProcessor> (folders);
    }

    ~Library() { root.deleteRecursively(); }

    [[nodiscard]] int countRows() const
    {
        return pluginCore::PresetMenu::make (processor->getPresetsManager(), true).presetFiles.size();
    }

private:
    const juce::File root = juce::File::createTempFile ("presets");
    std::unique_ptr<AudioPluginAudioProcessor> processor;

    JUCE_DECLARE_NON_COPYABLE (Library)
};
} // namespace

void registerBenchmarks()
{
    const auto library = std::make_shared<Library>();
    measure ("preset menu, 2000 presets", [library] { benchmark::DoNotOptimize (library->countRows()); });
}

} // namespace mk::orlo::bench
