// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureClipboard.h"

namespace mk::orlo::pictureClipboard
{

bool isAvailable() noexcept { return false; }

bool copy (const juce::Image&) { return false; }

} // namespace mk::orlo::pictureClipboard
