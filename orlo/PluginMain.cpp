// SPDX-License-Identifier: AGPL-3.0-or-later
#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1 // for JUCE's header of the message thread

#include "orlo/analysis/ComplexTransform.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/standalone/StandaloneProcessor.h"
#include "orlo/window/CreateEditor.h"

#include <mutex>
#include <optional>

#if JUCE_LINUX
    #include <juce_audio_plugin_client/detail/juce_LinuxMessageThread.h>
#endif

namespace
{

/** Pauses JUCE's own message thread, which serves plug-ins on Linux as long as no host does, while another thread makes
    or destroys an instance: it would handle messages for an incomplete one. A thread of the host is not paused, since it
    may be waiting for the caller. */
class MessageThreadPause
{
public:
    MessageThreadPause()
    {
#if JUCE_LINUX
        using OwnThread = juce::SharedResourcePointer<juce::detail::MessageThread>;

        if (const auto thread = OwnThread::getSharedObjectWithoutCreating();
            thread.has_value() && thread->get().isRunning())
            lock.emplace();
#endif
    }

private:
    std::optional<juce::MessageManagerLock> lock;

    JUCE_DECLARE_NON_COPYABLE (MessageThreadPause)
};

/** A first base, whose pause lasts until the bases after it are destroyed. */
class PausedDestruction
{
protected:
    std::optional<MessageThreadPause> pause;
};

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

/** TransformMemory is destroyed after the processor with all its transforms, and the pause ends after both. */
template <typename Processor>
class Plugin final : private PausedDestruction, private TransformMemory, public Processor
{
public:
    Plugin() : Processor (mk::orlo::createEditor) {}
    ~Plugin() override { this->pause.emplace(); }

    JUCE_DECLARE_NON_COPYABLE (Plugin)
};

[[nodiscard]] std::unique_ptr<mk::orlo::AudioPluginAudioProcessor> makePlugin()
{
    if (juce::PluginHostType::getPluginLoadedAs() == juce::AudioProcessor::wrapperType_Standalone)
        return std::make_unique<Plugin<mk::orlo::StandaloneProcessor>>();

    return std::make_unique<Plugin<mk::orlo::AudioPluginAudioProcessor>>();
}
} // namespace

/** Called by the format wrappers for a new instance. The wrapper owns the result. */
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    const MessageThreadPause pause;
    auto processor = makePlugin();
    processor->applyInitialSettings();
    return processor.release();
}
