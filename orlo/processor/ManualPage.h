// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <vector>

/** Where the manual is: installed on this computer, or on the vendor's site. */
namespace mk::orlo::manual
{

/** The folders in which an installation may have put the manual: the user's own first, then those for all users.
    Not all of them exist. Reads the environment; any thread but the audio thread. */
[[nodiscard]] std::vector<juce::File> getFolders();

/** The address of index.html in the first folder that has one; the site's page if none has. Looks at the disk;
    any thread but the audio thread. */
[[nodiscard]] juce::URL choosePage (const std::vector<juce::File>& folders, const juce::URL& sitePage);

} // namespace mk::orlo::manual
