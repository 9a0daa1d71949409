// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/stills/HistorySource.h"
#include "orlo/stills/StillPicture.h"

namespace mk::orlo
{

/** What the user sees and can save: a range of a kept sound, and its picture. */
struct ExportSubject
{
    std::shared_ptr<const KeptSound> sound;
    StillRequest request; /**< With the size at which the picture is seen. */
    StillColours colours;
};

} // namespace mk::orlo
