// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "VersionNumber.h"

/** Reads what the vendor's site answers. The text may be anything at all. Any thread. */
namespace mk::pluginCore::updateReplies
{

/** How much of a reply is read, in bytes; what follows is cut off. */
inline constexpr size_t maxVersionBytes = size_t { 64 } * 1024;
inline constexpr size_t maxChangeLogBytes = size_t { 1024 } * 1024;

/** What the site tells of the latest version. What it leaves out is 0. */
struct LatestVersion
{
    VersionNumber version;
    bool isBeta = false;
    juce::int64 releaseDate = 0; /**< milliseconds since 1970 */
};

/** A reply's bytes as text: UTF-8, or Latin-1 if they are not; up to the first null byte; line ends as "\n";
    without a byte order mark, other control characters, and the rest of a character that was cut. */
[[nodiscard]] juce::String decode (const juce::MemoryBlock& reply);

/** Reads fields "key:value" with ";" between them; double quotes protect a ";" inside a value. Of a key that
    comes twice the last counts. */
[[nodiscard]] LatestVersion parseVersion (const juce::String& reply);

/** The change log in a reply: all of it, or nothing if the site says that it has no such page. */
[[nodiscard]] juce::String parseChangeLog (const juce::String& reply);

} // namespace mk::pluginCore::updateReplies
