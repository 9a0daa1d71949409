// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::test
{

/** A new folder under the temporary folder, deleted with the object. */
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();

    [[nodiscard]] juce::File get() const { return folder; }

private:
    const juce::File folder;

    JUCE_DECLARE_NON_COPYABLE (TemporaryFolder)
};

} // namespace mk::orlo::test
