// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ExploreSettings.h"
#include "TimeView.h"
#include "orlo/stills/HistorySource.h"
#include "orlo/stills/StillDrawer.h"

namespace mk::orlo
{

/** Looks at a sound that stands still: owns the range on view, the settings, and the still picture of both that is
    shown. All that draws or measures while exploring asks this. [message thread]

    The picture is a little behind the view: until the next one is finished, the one before stays, and its request says
    which range it shows. */
class Explorer
{
public:
    struct Listener
    {
        virtual ~Listener() = default;

        /** Exploring has begun or ended. */
        virtual void exploringChanged() {}

        /** Another range of time is looked at. */
        virtual void exploredRangeChanged() {}

        /** There is another picture, or it has other colours. */
        virtual void exploredPictureChanged() {}
    };

    Explorer() = default;
    ~Explorer();

    /** Begins to look at what is kept of a sound at this moment. Returns false and changes nothing if there is no sound
        or there can be no threads to draw with. The picture comes later.
        @param homeStart   the range that the frozen picture shows, in samples; homeLength more than 0 */
    [[nodiscard]] bool begin (std::shared_ptr<const KeptSound> sound,
                              double homeStart,
                              double homeLength,
                              const ExploreSettings& settings);

    /** Forgets the sound and the picture. */
    void end();

    [[nodiscard]] bool isExploring() const noexcept { return sound != nullptr; }

    /** The picture's size in pixels; without pixels nothing is drawn. */
    void setSize (int width, int height);

    void setSettings (const ExploreSettings& newSettings);
    [[nodiscard]] const ExploreSettings& getSettings() const noexcept { return settings; }

    /** Looks at another range of the same sound. */
    void setTimeView (const TimeView& newView);
    [[nodiscard]] const TimeView& getTimeView() const noexcept { return timeView; }

    /** The sound that is looked at; null while not exploring. */
    [[nodiscard]] std::shared_ptr<const KeptSound> getSound() const noexcept { return sound; }

    /** What the picture is to show. Its source is null while not exploring. */
    [[nodiscard]] StillRequest makeRequest() const;

    /** The newest picture; null before the first one. */
    [[nodiscard]] std::shared_ptr<const StillPicture> getPicture() const noexcept { return picture; }

    /** The picture with its colours; invalid before the first one. */
    [[nodiscard]] const juce::Image& getImage() const noexcept { return image; }

    /** Whether the picture is final and of the range, size and settings that are looked at. */
    [[nodiscard]] bool isPictureCurrent() const noexcept;

    /** The scale of the rows that are looked at; null while not exploring. */
    [[nodiscard]] std::shared_ptr<const FrequencyScale> getFrequencyScale() const noexcept { return scale; }

    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

private:
    void updateSources();
    void updateScale();
    void draw();
    void takePicture (std::shared_ptr<const StillPicture> newPicture);
    void readAgain();
    void paintImage();

    std::shared_ptr<const KeptSound> sound;
    StillRequest sources;                // of which only the sound is set
    std::unique_ptr<StillDrawer> drawer; // while exploring
    TimeView timeView;
    ExploreSettings settings;
    StillScales scales;
    std::shared_ptr<const FrequencyScale> scale;
    int width = 0, height = 0;
    std::shared_ptr<const StillPicture> picture;
    juce::Image image;
    juce::ListenerList<Listener> listeners;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Explorer)
};

} // namespace mk::orlo
