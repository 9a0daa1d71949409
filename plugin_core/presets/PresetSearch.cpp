// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetSearch.h"

#include <set>

namespace mk::pluginCore
{
namespace
{
constexpr auto anything = "*";

// Limits the recursion through links; real folders are never nested this deeply.
constexpr int maxDepth = 64;

[[nodiscard]] bool hasPresets (const juce::File& folderOrAlias,
                               const juce::String& extension,
                               std::set<juce::String>& visited,
                               int depth)
{
    const auto folder = folderOrAlias.getLinkedTarget();

    if (depth > maxDepth || ! folder.isDirectory() || ! visited.insert (folder.getFullPathName()).second)
        return false;

    for (const auto& entry :
         juce::RangedDirectoryIterator (folder, false, anything, juce::File::findFilesAndDirectories))
    {
        const auto child = entry.getFile().getLinkedTarget();

        if (child.hasFileExtension (extension) || hasPresets (child, extension, visited, depth + 1))
            return true;
    }

    return false;
}
} // namespace

bool folderHasPresets (const juce::File& folderOrAlias, const juce::String& wildcard)
{
    const auto folder = folderOrAlias.getLinkedTarget();

    if (! folder.isDirectory())
        return false;

    if (wildcard == anything)
        return folder.getNumberOfChildFiles (juce::File::findFilesAndDirectories) > 0;

    std::set<juce::String> visited;
    return hasPresets (folder, wildcard.removeCharacters (anything), visited, 0);
}

} // namespace mk::pluginCore
