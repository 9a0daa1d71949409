// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SoundOverview.h"

#include <system_error>

namespace mk::orlo
{
namespace
{
constexpr int overviewWindow = 1024;
} // namespace

SoundOverview::SoundOverview (Explorer& explorerToShow) : explorer (explorerToShow) { explorer.addListener (this); }

SoundOverview::~SoundOverview() { explorer.removeListener (this); }

void SoundOverview::setSize (int newWidth, int newHeight)
{
    width = newWidth;
    height = newHeight;
    draw();
}

void SoundOverview::exploringChanged()
{
    drawer = nullptr;
    picture = nullptr;
    image = {};

    if (explorer.isExploring())
    {
        try
        {
            drawer = std::make_unique<StillDrawer> (StillPriority::beside);
        }
        catch (const std::system_error&)
        {
            return; // the strip does without the picture
        }

        drawer->onPicture = [this] (std::shared_ptr<const StillPicture> newPicture)
        {
            picture = std::move (newPicture);
            paint();
        };
        draw();
    }

    if (onChanged != nullptr)
        onChanged();
}

void SoundOverview::exploredPictureChanged()
{
    if (picture != nullptr && ! haveTheSameColours (paintedWith, explorer.getSettings()))
        paint();

    draw();
}

void SoundOverview::draw()
{
    if (drawer == nullptr || width < 1 || height < 1)
        return;

    const auto& view = explorer.getTimeView();

    auto request = explorer.makeRequest();
    request.start = view.getSoundStart();
    request.length = view.getSoundEnd() - view.getSoundStart();
    request.width = width;
    request.height = height;
    request.hop.windowSize = overviewWindow;
    request.hop.speed = 0.0f;
    request.hop.doubleResolution = false;
    request.hop.enhanced = false;
    drawer->draw (request);
}

void SoundOverview::paint()
{
    paintedWith = explorer.getSettings();
    image = paintedWith.colours.map != nullptr ? picture->paint (paintedWith.colours) : juce::Image();

    if (onChanged != nullptr)
        onChanged();
}

} // namespace mk::orlo
