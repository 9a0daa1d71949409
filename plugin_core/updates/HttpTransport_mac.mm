// SPDX-License-Identifier: AGPL-3.0-or-later
#include "WebStreamTransport.h"

namespace mk::pluginCore
{

std::unique_ptr<HttpTransport> HttpTransport::makeForThisSystem() { return std::make_unique<WebStreamTransport>(); }

} // namespace mk::pluginCore
