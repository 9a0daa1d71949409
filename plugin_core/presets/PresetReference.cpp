// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetReference.h"

#include <algorithm>

namespace mk::pluginCore
{
namespace
{
constexpr std::array rootNames { "FACTORY", "USER", "DESIGNER" };
constexpr auto rootAttribute = "root";
constexpr auto pathAttribute = "path";
} // namespace

PresetReference PresetReference::fromFile (const juce::File& file, const PresetFolders& folders)
{
    const auto roots = folders.getRoots();
    const auto holdsFile = [&file] (const juce::File& root) { return file.isAChildOf (root); };
    const auto found = std::find_if (roots.begin(), roots.end(), holdsFile);

    if (found == roots.end())
        return {};

    return { juce::int32 (std::distance (roots.begin(), found)),
             file.getRelativePathFrom (*found).replaceCharacter (juce::File::getSeparatorChar(), '/') };
}

PresetReference PresetReference::fromXml (const juce::XmlElement& xml)
{
    const auto& root = xml.getStringAttribute (rootAttribute);
    const auto found = std::find (rootNames.begin(), rootNames.end(), root);

    return { found != rootNames.end() ? juce::int32 (std::distance (rootNames.begin(), found)) : noRoot,
             xml.getStringAttribute (pathAttribute) };
}

void PresetReference::writeTo (juce::XmlElement& xml) const
{
    if (juce::isPositiveAndBelow (rootIndex, juce::int32 (rootNames.size())))
        xml.setAttribute (rootAttribute, rootNames[size_t (rootIndex)]);

    xml.setAttribute (pathAttribute, relativePath);
}

juce::File PresetReference::resolve (const PresetFolders& folders) const
{
    if (! juce::isPositiveAndBelow (rootIndex, juce::int32 (rootNames.size())) || relativePath.isEmpty())
        return {};

    const auto root = folders.getRoots()[size_t (rootIndex)];
    const auto file = root.getChildFile (relativePath);
    return file.isAChildOf (root) ? file : juce::File();
}

} // namespace mk::pluginCore
