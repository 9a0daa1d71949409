// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/files/CheckedFileStream.h"

namespace mk::orlo::render
{

/** A file that appears only when it is complete: it is written under a temporary name in the same folder and
    renamed at the end. */
class OutputFile
{
public:
    /** Creates the temporary file at once, so that a target that cannot be written fails before the work is
        done. Throws RenderError if the folder does not exist, if something that is not a regular file has that
        name, or if there is no permission. */
    explicit OutputFile (const juce::File& target);

    /** Removes the temporary file, unless commit() was called. */
    ~OutputFile();

    /** The stream to write the content to. Failed writes are remembered until commit(). */
    [[nodiscard]] juce::OutputStream& getStream() noexcept { return *stream; }

    /** Renames the file to its final name and replaces an existing file. Throws RenderError if that fails or if
        not all of the content could be written. */
    void commit();

private:
    [[noreturn]] void fail (const juce::String& why) const;

    const juce::File target, temporary;
    std::unique_ptr<pluginCore::CheckedFileStream> stream; // null after commit()

    JUCE_DECLARE_NON_COPYABLE (OutputFile)
};

} // namespace mk::orlo::render
