// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ActiveApplication.h"

#import <AppKit/AppKit.h>

namespace mk::pluginCore
{

bool isApplicationActive (const juce::Component&)
{
    // A host that is no application of its own, such as a bare scanner, never gets one later.
    static const auto hasApplication = NSApp != nil;
    return ! hasApplication || [[NSApplication sharedApplication] isActive];
}

} // namespace mk::pluginCore
