// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"

#include <mutex>

#if JUCE_DSP_USE_STATIC_FFTW
extern "C" void fftwf_cleanup (void);
#endif

namespace
{
#if JUCE_DSP_USE_STATIC_FFTW

/** FFTW keeps what it has learnt about transforms. A host that loads and unloads the plug-in, as every scan
    does, would lose that memory each time, so the last instance gives it back. No static object could do that
    in its destructor: when a host exits with the plug-in loaded, a worker may still be transforming. */
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
            fftwf_cleanup();
    }

private:
    static inline std::mutex mutex; // FFTW makes no plan while it cleans up
    static inline int numInstances = 0;

    JUCE_DECLARE_NON_COPYABLE (TransformMemory)
};

#else

struct TransformMemory
{
};

#endif

/** The first base goes last: after all transforms. */
class Plugin final : private TransformMemory, public mk::orlo::AudioPluginAudioProcessor
{
public:
    Plugin() : AudioPluginAudioProcessor (mk::orlo::createEditor) {}
};
} // namespace

/** What the format wrappers call for a new instance. The wrapper owns what it gets. */
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    auto processor = std::make_unique<Plugin>();
    processor->applyInitialSettings();
    return processor.release();
}
