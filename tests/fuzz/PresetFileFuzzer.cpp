// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FuzzEnvironment.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace mk;

namespace
{
[[nodiscard]] std::vector<float> getValues (orlo::AudioPluginAudioProcessor& processor)
{
    std::vector<float> values;

    for (const auto* parameter : processor.getParameters())
        values.push_back (parameter->getValue());

    return values;
}

void checkLegal (const std::vector<float>& values)
{
    for (const auto value : values)
        if (! std::isfinite (value) || value < 0.0f || value > 1.0f)
            std::abort();
}
} // namespace

/** With arbitrary bytes in a preset file, the parameters stay legal, and an undo restores the state before. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    static const orlo::test::FuzzEnvironment environment;
    static orlo::AudioPluginAudioProcessor processor;

    auto& presets = processor.getPresetsManager();
    auto& undo = processor.getUndoManager();
    const auto file = presets.getUserFolder().getChildFile ("fuzz.mkpreset");

    if (! file.replaceWithData (data, size))
        std::abort();

    const auto before = getValues (processor);
    const auto fileBefore = presets.getCurrentPresetFile();

    if (! presets.loadPresetFile (file, &undo))
    {
        if (getValues (processor) != before || presets.getCurrentPresetFile() != fileBefore)
            std::abort();

        return 0;
    }

    checkLegal (getValues (processor));

    if (! undo.undo() || presets.getCurrentPresetFile() != fileBefore)
        std::abort();

    const auto after = getValues (processor);

    for (size_t i = 0; i < before.size(); ++i)
        if (std::abs (before[i] - after[i]) > 1e-5f)
            std::abort();

    undo.redo();
    undo.clearUndoHistory();
    return 0;
}
