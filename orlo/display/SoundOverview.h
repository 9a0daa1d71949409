// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/explore/Explorer.h"

#include <functional>

namespace mk::orlo
{

/** A small picture of all the sound that is explored, with the explored picture's colours and frequencies. It is drawn
    after that picture, by short windows, which are quick. [message thread] */
class SoundOverview final : private Explorer::Listener
{
public:
    /** The explorer must outlive this. */
    explicit SoundOverview (Explorer& explorer);
    ~SoundOverview() override;

    /** Called when the image has changed. */
    std::function<void()> onChanged;

    /** In pixels. */
    void setSize (int width, int height);

    /** Invalid while not exploring, and until it is drawn. */
    [[nodiscard]] const juce::Image& getImage() const noexcept { return image; }

private:
    void exploringChanged() override;
    void exploredPictureChanged() override;
    void draw();
    void paint();

    Explorer& explorer;
    std::unique_ptr<StillDrawer> drawer; // while exploring
    int width = 0, height = 0;
    std::shared_ptr<const StillPicture> picture;
    ExploreSettings paintedWith;
    juce::Image image;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SoundOverview)
};

} // namespace mk::orlo
