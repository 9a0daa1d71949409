// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

#include <functional>
#include <memory>

/** Functions for benchmarks of the window, which need a display. [message thread] */
namespace mk::orlo::bench
{

/** Runs the message loop until the condition holds or the time is over. Sleeps while there are no messages. */
void runLoop (
    double seconds,
    const std::function<bool()>& isDone = [] { return false; });

/** Opens the processor's editor as a window of its own. */
[[nodiscard]] std::unique_ptr<AudioPluginAudioProcessorEditor> openEditor (AudioPluginAudioProcessor& processor);

} // namespace mk::orlo::bench
