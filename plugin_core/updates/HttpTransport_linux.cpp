// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CurlTransport.h"

namespace mk::pluginCore
{

// JUCE's own requests know no TLS on Linux without linking libcurl.
std::unique_ptr<HttpTransport> HttpTransport::makeForThisSystem() { return std::make_unique<CurlTransport>(); }

} // namespace mk::pluginCore
