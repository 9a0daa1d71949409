// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Whether a folder, or one at any depth below it, contains a file or folder that matches a wildcard of the
    form "*.extension". "*" asks whether the folder itself contains anything. Hidden files count. Aliases and
    symbolic links are followed; each folder is visited once, so a link to a parent folder causes no loop. */
[[nodiscard]] bool folderHasPresets (const juce::File& folder, const juce::String& wildcard);

} // namespace mk::pluginCore
