// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ActiveApplication.h"

#import <AppKit/AppKit.h>

namespace mk::pluginCore
{

bool isApplicationActive (const juce::Component&)
{
    // A host without an NSApplication, such as a command-line plug-in scanner, does not create one later.
    static const auto hasApplication = NSApp != nil;
    return ! hasApplication || [[NSApplication sharedApplication] isActive];
}

} // namespace mk::pluginCore
