// SPDX-License-Identifier: AGPL-3.0-or-later
// The time to open the lists of the settings panel: the colour maps, and 2000 presets in 50 folders. The windows
// need a display; without one only the creation of the rows is measured.
#include "benchmarks/support/Measure.h"
#include "benchmarks/support/Window.h"
#include "orlo/display/ColourComboBoxControl.h"
#include "orlo/window/CreateEditor.h"
#include "plugin_core/presets/PresetMenu.h"

#include <memory>

namespace mk::orlo::bench
{
namespace
{
constexpr int numFolders = 50;
constexpr int numPresetsEach = 40;

/** A processor with many user presets, in a temporary folder that is deleted at the end. */
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
        processor = std::make_unique<AudioPluginAudioProcessor> (createEditor, folders);
    }

    [[nodiscard]] AudioPluginAudioProcessor& getProcessor() { return *processor; }

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

/** The window with the settings panel open. */
class Panel
{
public:
    explicit Panel (std::shared_ptr<Library> libraryToShow)
        : library (std::move (libraryToShow)), editor (openEditor (library->getProcessor()))
    {
        editor->getMainComponent().setSettingsWanted (true);
    }

    /** Opens the list of a control of the panel, paints it and closes it again. */
    void openAndClose (const std::function<void()>& open)
    {
        auto& modals = *juce::ModalComponentManager::getInstance();
        open();
        editor->getPeer()->performAnyPendingRepaintsNow();

        if (modals.getNumModalComponents() == 0)
            std::abort();

        juce::PopupMenu::dismissAllActiveMenus();
        runLoop (10.0, [&] { return modals.getNumModalComponents() == 0; });

        // The control is notified one message later.
        auto heard = false;
        juce::MessageManager::callAsync ([&heard] { heard = true; });
        runLoop (10.0, [&heard] { return heard; });
    }

    template <typename Type>
    [[nodiscard]] Type& find (const char* id)
    {
        return dynamic_cast<Type&> (*editor->getMainComponent().getSettingsPanel().findChildWithID (id));
    }

private:
    const std::shared_ptr<Library> library;
    const std::unique_ptr<AudioPluginAudioProcessorEditor> editor;
};
} // namespace

void registerBenchmarks()
{
    const auto library = std::make_shared<Library>();
    measure ("preset menu, rows for 2000 presets", [library] { benchmark::DoNotOptimize (library->countRows()); });

    if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
        return;

    const auto panel = std::make_shared<Panel> (library);
    measure ("preset menu, opened with 2000 presets and closed",
             [panel] { panel->openAndClose ([&] { panel->find<juce::Button> ("presetsButton").onClick(); }); });
    measure ("list of colour maps, opened and closed",
             [panel] { panel->openAndClose ([&] { panel->find<ColourComboBoxControl> ("colourBox").showPopup(); }); });
}

} // namespace mk::orlo::bench
