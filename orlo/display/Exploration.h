// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ExportSubject.h"
#include "FrequencyGesture.h"
#include "FrozenPicture.h"
#include "SpectrogramComponent.h"

#include <optional>

namespace mk::orlo
{

/** Lets the user look at the sound of the frozen picture: begins to explore with the user's first act or a changed
    setting while the display stands still, and ends it when the display moves on. Nothing else decides that. The sound is
    kept for as long as this exists. The session keeps the range, so that a window that is opened again on the same frozen
    picture goes on there. [message thread] */
class Exploration final
{
public:
    /** Both must outlive this. */
    Exploration (AudioPluginAudioProcessor& processor, SpectrogramComponent& view);
    ~Exploration();

    /** To be called at every refresh of the display, before anything new is painted. */
    void tick();

    /** Whether there is a frozen picture whose sound is kept, so that the acts below do something. */
    [[nodiscard]] bool isPossible() const;

    /** The acts of the user. Each begins exploring, if that is possible; else it returns false.
        @param factor  of the range on view; below 1 zooms in
        @param x       in the view's units, of the time that stays where it is; likewise y */
    bool zoomTime (double factor, float x);
    bool zoomFrequencies (double factor, float y);
    bool changeTimeView (const std::function<void (TimeView&)>& change);

    /** Goes back to the range of the frozen picture, and to that picture itself unless a setting differs from then.
        Does nothing while not exploring. */
    void goHome();

    /** Goes back to the frozen picture. False while not exploring. */
    bool stop();

    /** The kept sound, and what of it the window shows at this moment, explored or not; nothing if no sound is kept. */
    [[nodiscard]] std::optional<ExportSubject> findSubject() const;

    [[nodiscard]] Explorer& getExplorer() noexcept { return explorer; }
    [[nodiscard]] FrequencyGesture& getFrequencyGesture() noexcept { return frequencies; }

private:
    [[nodiscard]] ExploreSettings readSettings() const;

    /** Whether the frozen picture was made with these settings. A window of another size only stretches it. */
    [[nodiscard]] bool isAsFrozen (const ExploreSettings& now) const noexcept;

    [[nodiscard]] std::shared_ptr<const KeptSound> findSound() const;
    [[nodiscard]] FrozenPicture findPicture (double rate, const ExploreSettings& settings) const;
    bool begin();
    void follow (const ExploreSettings& settings);
    void restoreFrequencies();
    void end();
    void remember();
    void resume();

    AudioPluginAudioProcessor& processor;
    SpectrogramComponent& view;
    Explorer& explorer;
    juce::RangedAudioParameter &mode, &fftSize, &speed, &floorGain, &ceiling, &freqScale;
    FrequencyGesture frequencies;

    std::optional<ExploreSettings> frozen; // those that the frozen picture was made with
    FrozenPicture picture;                 // while exploring
    TimeView remembered;                   // the range that the session has

    // While exploring, from the first zoom of frequencies on: the values before it, and those after the last.
    std::optional<FrequencyGesture::Values> valuesBefore, valuesAfter;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Exploration)
};

} // namespace mk::orlo
