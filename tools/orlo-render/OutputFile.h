// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "CheckedFileStream.h"

namespace mk::orlo::render
{

/** A file that is there whole or not at all: it is written under another name next to its place and put there
    when it is complete. */
class OutputFile
{
public:
    /** Creates the temporary file, so that a place that cannot be written shows before the work is done. Throws
        RenderError if there is no such folder, if the place is taken by something else than a file, or if
        there is no permission. */
    explicit OutputFile (const juce::File& target);

    /** Removes the temporary file, unless commit() has come before. */
    ~OutputFile();

    /** Where the content goes. Failed writes are remembered until commit(). */
    [[nodiscard]] juce::OutputStream& getStream() noexcept { return *stream; }

    /** Puts the file in its place, over one that may be there. Throws RenderError if that fails or if not all of
        the content could be written. */
    void commit();

private:
    [[noreturn]] void fail (const juce::String& why) const;

    const juce::File target, temporary;
    std::unique_ptr<CheckedFileStream> stream; // null once the file is in its place

    JUCE_DECLARE_NON_COPYABLE (OutputFile)
};

} // namespace mk::orlo::render
