// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UpdateEnvironment.h"

namespace mk::pluginCore
{

UpdateEnvironment UpdateEnvironment::makeReal()
{
    return { &HttpTransport::makeForThisSystem, &juce::Time::currentTimeMillis, [] (const juce::URL& page) {
                static_cast<void> (page.launchInDefaultBrowser());
            } };
}

} // namespace mk::pluginCore
