// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CreateEditor.h"

#include "AudioPluginAudioProcessorEditor.h"

namespace mk::orlo
{

std::unique_ptr<pluginCore::ProcessorEditor> createEditor (AudioPluginAudioProcessor& processor)
{
    return std::make_unique<AudioPluginAudioProcessorEditor> (processor);
}

} // namespace mk::orlo
