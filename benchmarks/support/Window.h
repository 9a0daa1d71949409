// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

#include <functional>
#include <memory>

/** What benchmarks of the window share. They need a display. [message thread] */
namespace mk::orlo::bench
{

/** Runs the message loop, asleep while there is nothing to do, until the condition holds or the time is over. */
void runLoop (
    double seconds,
    const std::function<bool()>& isDone = [] { return false; });

/** Opens the processor's editor as a window of its own. */
[[nodiscard]] std::unique_ptr<AudioPluginAudioProcessorEditor> openEditor (AudioPluginAudioProcessor& processor);

} // namespace mk::orlo::bench
