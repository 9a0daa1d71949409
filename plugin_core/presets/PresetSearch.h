// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Whether a folder, or one at any depth below it, has a file or folder that fits a wildcard of the form
    "*.extension". "*" asks whether there is anything in it at all. Hidden files count. Aliases and symbolic
    links are followed, each folder once, so that a link to a folder above ends the search there. */
[[nodiscard]] bool folderHasPresets (const juce::File& folder, const juce::String& wildcard);

} // namespace mk::pluginCore
