// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** What the update check needs of the world around it. */
struct UpdateEnvironment
{
    std::function<std::unique_ptr<HttpTransport>()> makeTransport;
    std::function<juce::int64()> getCurrentTimeMs; /**< since 1970 */
    std::function<void (const juce::URL&)> openInBrowser;

    [[nodiscard]] static UpdateEnvironment makeReal();
};

} // namespace mk::pluginCore
