// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetFolders.h"

namespace mk::pluginCore
{

/** A preset by the folder it lies in and its path below that, so that a session finds it again under
    another home folder and on another system. */
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

    /** The first folder that holds the file wins. A file in none of them, or no file at all, gives a
        reference without root and path, which resolves to no file. */
    [[nodiscard]] static PresetReference fromFile (const juce::File& file, const PresetFolders& folders);

    /** Reads the attributes "root" and "path". An unknown root leaves the reference without one. */
    [[nodiscard]] static PresetReference fromXml (const juce::XmlElement& xml);

    /** Writes the attributes; "root" only if there is one. */
    void writeTo (juce::XmlElement& xml) const;

    /** The file, whether it exists or not. An empty file without root or path, and for a path that leads
        out of the root folder. */
    [[nodiscard]] juce::File resolve (const PresetFolders& folders) const;

    [[nodiscard]] bool operator== (const PresetReference&) const = default;
};

} // namespace mk::pluginCore
