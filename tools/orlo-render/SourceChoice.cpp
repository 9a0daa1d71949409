// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SourceChoice.h"

#include "RenderError.h"
#include "plugin_core/text/NumberText.h"

#include <limits>

namespace mk::orlo::render
{

SourceChoice parseSource (const juce::String& text)
{
    const juce::StringArray names (sourceNames.data(), int (sourceNames.size()));

    if (const auto index = names.indexOf (text, true); index >= 0)
        return { Source (index), -1 };

    if (const auto number = pluginCore::parseWholeNumber (text, 1, std::numeric_limits<int>::max()))
        return { Source::mean, *number - 1 };

    throw RenderError ("--source: '" + text + "' is neither a channel's number nor one of "
                           + names.joinIntoString (", "),
                       RenderError::usage);
}

} // namespace mk::orlo::render
