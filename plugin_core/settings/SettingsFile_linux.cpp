// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsFile.h"

#include "plugin_core/files/ConfigurationFolder.h"
#include "plugin_core/files/FileReplacement.h"

#include <cstdio>

namespace mk::pluginCore
{
namespace
{
/** Moves an existing file to a path where there is no file. Returns false and leaves the file unchanged if that
    fails. */
[[nodiscard]] bool moveToNewPlace (const juce::File& from, const juce::File& to)
{
    if (! to.getParentDirectory().createDirectory())
        return false;

    // A symbolic link may be relative to its folder, so it is copied by content and not renamed.
    if (! from.isSymbolicLink()
        && std::rename (from.getFullPathName().toRawUTF8(), to.getFullPathName().toRawUTF8()) == 0)
        return true;

    // A rename fails across file systems, so the content is copied. A remaining old file is never read again.
    if (! replaceFileContent (to, from.loadFileAsString()))
        return false;

    from.deleteFile();
    return true;
}

void removeIfEmpty (const juce::File& folder)
{
    // The system refuses to remove a folder that is not empty.
    if (folder.isDirectory() && ! folder.isSymbolicLink())
        folder.deleteFile();
}
} // namespace

juce::File findSettingsFile (const juce::PropertiesFile::Options& options)
{
    auto formerFile = options.getDefaultFile();
    auto file = getConfigurationFolder().getChildFile (options.folderName).getChildFile (formerFile.getFileName());

    // A pipe or a device has no size, and reading it might never end.
    const auto isThere = formerFile.existsAsFile() && formerFile.getSize() > 0;

    if (file == formerFile || file.exists() || ! isThere)
        return file;

    // If the move fails because another process has moved the file meanwhile, the new file exists.
    if (! moveToNewPlace (formerFile, file) && ! file.exists())
        return formerFile;

    const auto productFolder = formerFile.getParentDirectory();
    removeIfEmpty (productFolder);
    removeIfEmpty (productFolder.getParentDirectory());
    return file;
}

} // namespace mk::pluginCore
