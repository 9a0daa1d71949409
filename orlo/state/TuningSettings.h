// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "UIView.h"

#include "plugin_core/settings/PluginGlobalSettings.h"

#include <optional>

namespace mk::orlo::data
{

/** The concert pitch and the octave number of middle C. A session keeps both; where it has none, those that the user
    has chosen last are taken. What is out of range or not a number counts as not there. [message thread] */
class TuningSettings
{
public:
    static constexpr double defaultPitch = 440.0, lowestPitch = 300.0, highestPitch = 600.0; // hertz
    static constexpr int lowestMiddleC = 3, highestMiddleC = 5;

    /** The view must outlive this object. */
    explicit TuningSettings (UIView& viewToUse) : view (viewToUse) {}

    /** Hertz. */
    [[nodiscard]] double getConcertPitch() const;

    /** The number of the octave, or nothing if it is that of the host. */
    [[nodiscard]] std::optional<int> getMiddleC() const;

    /** Stores the user's choice in the session and as the user's own. The pitch must be in the range.*/
    void setConcertPitch (double hz);
    void setMiddleC (std::optional<int> octave);

    /** Copies what the user has chosen last to the session, so that it stays as it is now. */
    void takeUsersChoice();

private:
    UIView& view;
    const pluginCore::PluginGlobalSettings userSettings;
};

/** The pitch that a text from a file or from the user means, with or without "Hz"; nothing if it is out of range or no
    number. */
[[nodiscard]] std::optional<double> parseConcertPitch (const juce::String& text);

/** With as many decimals as needed, two at most. */
[[nodiscard]] juce::String formatConcertPitch (double hz);

} // namespace mk::orlo::data
