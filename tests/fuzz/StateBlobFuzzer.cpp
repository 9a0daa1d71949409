// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FuzzEnvironment.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/state/StateBlob.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace mk;

namespace
{
[[nodiscard]] juce::MemoryBlock save (orlo::AudioPluginAudioProcessor& processor)
{
    juce::MemoryBlock blob;
    processor.getStateInformation (blob);
    return blob;
}

void restore (orlo::AudioPluginAudioProcessor& processor, const juce::MemoryBlock& blob)
{
    processor.setStateInformation (blob.getData(), int (blob.getSize()));
}

void checkParameters (orlo::AudioPluginAudioProcessor& processor)
{
    for (const auto* parameter : processor.getParameters())
        if (! std::isfinite (parameter->getValue()) || parameter->getValue() < 0.0f || parameter->getValue() > 1.0f)
            std::abort();
}
} // namespace

/** With arbitrary bytes from a host, the parameters stay legal, and a state saved then is restored unchanged. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    static const orlo::test::FuzzEnvironment environment;
    static orlo::AudioPluginAudioProcessor processor;

    processor.setStateInformation (data, int (size));
    checkParameters (processor);
    juce::ignoreUnused (processor.getUIView().cleanViewMode.get(), processor.getUIView().normalBounds.get());

    const auto saved = save (processor);

    // A document just within the limits can exceed them when it is written again. A locked parameter is set to
    // its own value again, which can change its last bit.
    if (pluginCore::readStateBlob (saved.getData(), int (saved.getSize())) != nullptr
        && processor.getSessionState().getLockedParams().isEmpty())
    {
        restore (processor, saved);

        if (save (processor) != saved)
            std::abort();
    }

    processor.getSessionState().setLockedParams ({});
    return 0;
}
