// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/Redirects.h"

#include <gmock/gmock.h>

#include <vector>

namespace mk::pluginCore::test
{
namespace
{

using testing::ElementsAre;

constexpr auto page = "http://site.example:8080/a/b.php?x=1#top";

TEST (Redirects, LeadToAWholeAddress)
{
    EXPECT_EQ (resolveRedirect (page, "http://other.example/c"), "http://other.example/c");
    EXPECT_EQ (resolveRedirect (page, "HTTPS://other.example"), "HTTPS://other.example");
    EXPECT_EQ (resolveRedirect (page, " http://other.example/c "), "http://other.example/c");
}

TEST (Redirects, LeadToAPathOfTheSameSite)
{
    EXPECT_EQ (resolveRedirect (page, "/c?d=http://e"), "http://site.example:8080/c?d=http://e");
    EXPECT_EQ (resolveRedirect (page, "c"), "http://site.example:8080/a/c");
    EXPECT_EQ (resolveRedirect (page, "?y=2"), "http://site.example:8080/a/b.php?y=2");
    EXPECT_EQ (resolveRedirect ("http://site.example", "c"), "http://site.example/c");
    EXPECT_EQ (resolveRedirect ("http://site.example?x", "/c"), "http://site.example/c");
}

TEST (Redirects, LeadToAnotherSiteByTheSameScheme)
{
    EXPECT_EQ (resolveRedirect (page, "//other.example/c"), "http://other.example/c");
    EXPECT_EQ (resolveRedirect ("https://site.example/a", "//other.example/c"), "https://other.example/c");
}

TEST (Redirects, LeadOnlyToHttpAddresses)
{
    for (const auto* const location :
         { "file:///etc/hostname", "ftp://site.example/x", "javascript:x", "data:,x", "http:x", "smb://x/y" })
        EXPECT_EQ (resolveRedirect (page, location), "") << location;
}

TEST (Redirects, DoNotLeadFromASecurePageToAnInsecureOne)
{
    EXPECT_EQ (resolveRedirect ("https://site.example/a", "http://site.example/b"), "");
    EXPECT_EQ (resolveRedirect ("HTTPS://site.example/a", "http://site.example/b"), "");
    EXPECT_EQ (resolveRedirect ("https://site.example/a", "https://other.example/b"), "https://other.example/b");
    EXPECT_EQ (resolveRedirect ("http://site.example/a", "https://site.example/b"), "https://site.example/b");
}

TEST (Redirects, OfAWholeChainAreFollowedByTheSameRule)
{
    std::vector<std::string> asked;
    const auto getOnce = [&asked] (const HttpRequest& request) -> HttpReply
    {
        asked.push_back (request.url.toStdString());

        if (request.url.endsWith ("/open"))
            return { std::nullopt, "https://site.example/secure" };

        return { std::nullopt, "http://site.example/open" };
    };

    EXPECT_FALSE (followRedirects ({ "http://site.example/open", {}, 1000, 5000 }, getOnce).has_value());
    EXPECT_THAT (asked, ElementsAre ("http://site.example/open", "https://site.example/secure"));
}

} // namespace
} // namespace mk::pluginCore::test
