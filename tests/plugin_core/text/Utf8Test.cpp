// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/text/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace mk::pluginCore
{

TEST (Utf8, RefusesBytesThatAreNotTheShortestFormOfACharacter)
{
    for (const std::string bytes : { "\xff\xfe",
                                     "\x80",
                                     "\xc3",
                                     "\xc3\x22",
                                     "\xc4\xc4",
                                     "\xc0\xbc",
                                     "\xe2\x82",
                                     "\xe2\x82\x22",
                                     "\xe0\x82\x82",
                                     "\xed\xa0\x80",
                                     "\xf0\x82\x82\xac",
                                     "\xf4\x90\x80\x80",
                                     "\xf8\x88\x80\x80\x80" })
    {
        EXPECT_FALSE (isUtf8 (bytes)) << bytes;
        EXPECT_FALSE (isUtf8 ("a" + bytes)) << bytes;
        EXPECT_FALSE (isUtf8 (bytes + "a")) << bytes;
    }
}

TEST (Utf8, TakesTheFirstAndTheLastCharacterOfEachLength)
{
    for (const std::string bytes : { "",
                                     "\x01",
                                     "\x7f",
                                     "\xc2\x80",
                                     "\xdf\xbf",
                                     "\xe0\xa0\x80",
                                     "\xed\x9f\xbf",
                                     "\xee\x80\x80",
                                     "\xef\xbf\xbf",
                                     "\xf0\x90\x80\x80",
                                     "\xf4\x8f\xbf\xbf" })
    {
        EXPECT_TRUE (isUtf8 (bytes)) << bytes;
        EXPECT_TRUE (isUtf8 ("a" + bytes + "a")) << bytes;
    }
}

TEST (Utf8, CountsNeitherSurrogatesNorNumbersBeyondTheLastAsCharacters)
{
    EXPECT_TRUE (isCharacter (0xd7ff));
    EXPECT_FALSE (isCharacter (0xd800));
    EXPECT_FALSE (isCharacter (0xdfff));
    EXPECT_TRUE (isCharacter (0xe000));
    EXPECT_TRUE (isCharacter (0x10ffff));
    EXPECT_FALSE (isCharacter (0x110000));
}

} // namespace mk::pluginCore
