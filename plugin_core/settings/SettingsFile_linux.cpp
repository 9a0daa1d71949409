// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsFile.h"

#include "plugin_core/files/ConfigurationFolder.h"
#include "plugin_core/files/FileReplacement.h"

#include <cstdio>

namespace mk::pluginCore
{
namespace
{
/** Moves a file that is there into a place where there is none. False, with the file as it was, if it
    cannot. */
[[nodiscard]] bool moveToNewPlace (const juce::File& from, const juce::File& to)
{
    if (! to.getParentDirectory().createDirectory())
        return false;

    // A link may be relative to its folder, so its content is what moves.
    if (! from.isSymbolicLink()
        && std::rename (from.getFullPathName().toRawUTF8(), to.getFullPathName().toRawUTF8()) == 0)
        return true;

    // The two places may lie on different disks. What stays behind is never looked at again.
    if (! replaceFileContent (to, from.loadFileAsString()))
        return false;

    from.deleteFile();
    return true;
}

void removeIfEmpty (const juce::File& folder)
{
    // The system refuses to remove a folder that holds anything.
    if (folder.isDirectory() && ! folder.isSymbolicLink())
        folder.deleteFile();
}
} // namespace

juce::File findSettingsFile (const juce::PropertiesFile::Options& options)
{
    const auto formerFile = options.getDefaultFile();
    const auto file =
        getConfigurationFolder().getChildFile (options.folderName).getChildFile (formerFile.getFileName());

    // A pipe or a device has no size, and reading it might never end.
    const auto isThere = formerFile.existsAsFile() && formerFile.getSize() > 0;

    if (file == formerFile || file.exists() || ! isThere)
        return file;

    // Another process may have moved it in between.
    if (! moveToNewPlace (formerFile, file) && ! file.exists())
        return formerFile;

    const auto productFolder = formerFile.getParentDirectory();
    removeIfEmpty (productFolder);
    removeIfEmpty (productFolder.getParentDirectory());
    return file;
}

} // namespace mk::pluginCore
