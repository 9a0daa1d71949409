// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/ProcessorEditor.h"

#include <memory>

namespace mk::orlo
{

class AudioPluginAudioProcessor;

/** Creates the product's window for the processor, which must outlive it. [message thread] */
[[nodiscard]] std::unique_ptr<pluginCore::ProcessorEditor> createEditor (AudioPluginAudioProcessor& processor);

} // namespace mk::orlo
