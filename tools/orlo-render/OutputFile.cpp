// SPDX-License-Identifier: AGPL-3.0-or-later
#include "OutputFile.h"

#include "RenderError.h"

#include <filesystem>

namespace mk::orlo::render
{
namespace
{
[[nodiscard]] std::filesystem::path toPath (const juce::File& file)
{
    const auto name = file.getFullPathName().toStdString();
    return std::filesystem::path (std::u8string (name.begin(), name.end()));
}

/** If the target is a link, the file that it points to, so that the link is kept and its file replaced. */
[[nodiscard]] juce::File resolveLinks (const juce::File& file)
{
    std::error_code error;
    const auto resolved = std::filesystem::canonical (toPath (file), error);
    return error ? file : juce::File (juce::String::fromUTF8 (resolved.string().c_str()));
}

[[nodiscard]] juce::File makeTemporaryName (const juce::File& target)
{
    return target.getSiblingFile (".orlo-render-"
                                  + juce::String::toHexString (juce::Random::getSystemRandom().nextInt64()));
}
} // namespace

OutputFile::OutputFile (const juce::File& file) : target (resolveLinks (file)), temporary (makeTemporaryName (target))
{
    std::error_code error;
    const auto status = std::filesystem::status (toPath (target), error);

    if (std::filesystem::is_directory (status))
        fail ("it is a folder");

    if (std::filesystem::exists (status) && ! std::filesystem::is_regular_file (status))
        fail ("it is not a regular file");

    if (std::filesystem::exists (status) && ! target.hasWriteAccess())
        fail ("it is write-protected");

    if (! target.getParentDirectory().isDirectory())
        fail ("there is no folder '" + target.getParentDirectory().getFullPathName() + "'");

    stream = std::make_unique<pluginCore::CheckedFileStream> (temporary);

    if (const auto opened = stream->getResult(); opened.failed())
        fail (opened.getErrorMessage());
}

OutputFile::~OutputFile()
{
    if (stream != nullptr)
    {
        juce::ignoreUnused (stream->close());
        temporary.deleteFile();
    }
}

void OutputFile::fail (const juce::String& why) const
{
    throw RenderError ("cannot write '" + target.getFileName() + "': " + why);
}

void OutputFile::commit()
{
    if (const auto written = stream->close(); written.failed())
        fail (written.getErrorMessage());

    std::error_code error;
    std::filesystem::rename (toPath (temporary), toPath (target), error);

    if (error)
        fail (juce::String (error.message()));

    stream.reset();
}

} // namespace mk::orlo::render
