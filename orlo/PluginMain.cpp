// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ComplexTransform.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"

#include <mutex>

namespace
{

/** Frees what the transform library keeps for planning with the last instance. The destructor of a static object could
    not do that: when a host exits with the plug-in loaded, a worker may still be transforming. */
class TransformMemory
{
public:
    TransformMemory()
    {
        const std::lock_guard lock (mutex);
        ++numInstances;
    }

    ~TransformMemory()
    {
        const std::lock_guard lock (mutex);

        if (--numInstances == 0)
            mk::orlo::ComplexTransform::freePlanningMemory();
    }

private:
    static inline std::mutex mutex;
    static inline int numInstances = 0;

    JUCE_DECLARE_NON_COPYABLE (TransformMemory)
};

/** TransformMemory is the first base, so it is destroyed last: after all transforms. */
class Plugin final : private TransformMemory, public mk::orlo::AudioPluginAudioProcessor
{
public:
    Plugin() : AudioPluginAudioProcessor (mk::orlo::createEditor) {}
};
} // namespace

/** Called by the format wrappers for a new instance. The wrapper owns the result. */
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    auto processor = std::make_unique<Plugin>();
    processor->applyInitialSettings();
    return processor.release();
}
