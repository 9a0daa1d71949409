// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CurlTransport.h"

namespace mk::pluginCore
{

// On Linux, JUCE's own requests support TLS only if libcurl is linked.
std::unique_ptr<HttpTransport> HttpTransport::makeForThisSystem() { return std::make_unique<CurlTransport>(); }

} // namespace mk::pluginCore
