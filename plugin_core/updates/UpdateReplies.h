// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "VersionNumber.h"

/** Parsers for the replies of the vendor's site, which may contain any bytes. Any thread. */
namespace mk::pluginCore::updateReplies
{

/** The maximum number of bytes to read of a reply; the rest is cut off. */
inline constexpr size_t maxVersionBytes = size_t { 64 } * 1024;
inline constexpr size_t maxChangeLogBytes = size_t { 1024 } * 1024;

/** The site's information on the latest version. Missing fields are 0. */
struct LatestVersion
{
    VersionNumber version;
    bool isBeta = false;
    juce::int64 releaseDate = 0; /**< milliseconds since 1970 */
};

/** Decodes a reply as UTF-8, or as Latin-1 if it is not valid UTF-8, up to the first null byte. Line ends become
    "\n"; a byte order mark, other control characters and an incomplete last character are removed. */
[[nodiscard]] juce::String decode (const juce::MemoryBlock& reply);

/** Parses fields "key:value" separated by ";"; double quotes protect a ";" inside a value. If a key is
    repeated, its last value is used. */
[[nodiscard]] LatestVersion parseVersion (const juce::String& reply);

/** The change log in a reply: the whole text, or empty if it says that the site has no such page. */
[[nodiscard]] juce::String parseChangeLog (const juce::String& reply);

} // namespace mk::pluginCore::updateReplies
