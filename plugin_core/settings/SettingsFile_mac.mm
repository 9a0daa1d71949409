// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsFile.h"

namespace mk::pluginCore
{

juce::File findSettingsFile (const juce::PropertiesFile::Options& options) { return options.getDefaultFile(); }

} // namespace mk::pluginCore
