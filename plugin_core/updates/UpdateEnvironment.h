// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HttpTransport.h"

namespace mk::pluginCore
{

/** The external functions that the update check uses, which tests replace. */
struct UpdateEnvironment
{
    std::function<std::unique_ptr<HttpTransport>()> makeTransport;
    std::function<juce::int64()> getCurrentTimeMs; /**< since 1970 */
    std::function<void (const juce::URL&)> openInBrowser;

    [[nodiscard]] static UpdateEnvironment makeReal();
};

} // namespace mk::pluginCore
