// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetFolders.h"

namespace mk::pluginCore
{

/** Refers to a preset by its root folder and its path relative to that, so that a session finds it again
    under another home folder or on another system. */
struct PresetReference
{
    enum Root
    {
        FACTORY = 0,
        USER = 1,
        DESIGNER = 2
    };

    static constexpr juce::int32 noRoot = -1;

    juce::int32 rootIndex = noRoot;
    juce::String relativePath; /**< Its parts are separated by "/" on every system. */

    /** Uses the first root folder that contains the file. If none does, or the file is empty, the
        reference has neither root nor path and resolves to no file. */
    [[nodiscard]] static PresetReference fromFile (const juce::File& file, const PresetFolders& folders);

    /** Reads the attributes "root" and "path". If the root is unknown, the reference has none. */
    [[nodiscard]] static PresetReference fromXml (const juce::XmlElement& xml);

    /** Writes the attributes; "root" only if there is one. */
    void writeTo (juce::XmlElement& xml) const;

    /** The file, whether it exists or not. Returns an empty file if root or path is missing, or if the path
        leads out of the root folder. */
    [[nodiscard]] juce::File resolve (const PresetFolders& folders) const;

    [[nodiscard]] bool operator== (const PresetReference&) const = default;
};

} // namespace mk::pluginCore
