// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"

#if JUCE_DSP_USE_STATIC_FFTW
extern "C" void fftwf_cleanup (void);

namespace
{
/** FFTW keeps what it has learnt about transforms. A host that loads and unloads the plug-in, as every scan
    does, would lose that memory each time. */
const struct TransformCleanup
{
    ~TransformCleanup() { fftwf_cleanup(); }
} transformCleanup;
} // namespace
#endif

/** What the format wrappers call for a new instance. The wrapper owns what it gets. */
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    auto processor = std::make_unique<mk::orlo::AudioPluginAudioProcessor> (mk::orlo::createEditor);
    processor->applyInitialSettings();
    return processor.release();
}
