// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Explorer.h"

#include <system_error>

namespace mk::orlo
{

Explorer::~Explorer() = default;

bool Explorer::begin (std::shared_ptr<const KeptSound> newSound,
                      double homeStart,
                      double homeLength,
                      const ExploreSettings& newSettings)
{
    if (newSound == nullptr || newSound->getEnd() <= newSound->getStart() || ! (homeLength > 0.0))
        return false;

    try
    {
        drawer = std::make_unique<StillDrawer> (StillPriority::onScreen);
    }
    catch (const std::system_error&)
    {
        return false;
    }

    drawer->onPicture = [this] (std::shared_ptr<const StillPicture> newPicture)
    { takePicture (std::move (newPicture)); };
    drawer->onFailure = [this] (const juce::String&) { readAgain(); };

    sound = std::move (newSound);
    timeView = { double (sound->getStart()), double (sound->getEnd()), sound->getSampleRate(), homeStart, homeLength };
    settings = newSettings;
    picture = nullptr;
    image = {};
    updateSources();
    updateScale();
    draw();
    listeners.call (&Listener::exploringChanged);
    return true;
}

void Explorer::end()
{
    if (! isExploring())
        return;

    drawer = nullptr;
    picture = nullptr;
    image = {};
    scale = nullptr;
    sources = {};
    sound = nullptr;
    listeners.call (&Listener::exploringChanged);
}

//==============================================================================
void Explorer::setSize (int newWidth, int newHeight)
{
    width = newWidth;
    height = newHeight;
    draw();
}

void Explorer::setSettings (const ExploreSettings& newSettings)
{
    const auto isOtherColour = ! haveTheSameColours (settings, newSettings);
    const auto isOtherSource = settings.source != newSettings.source;
    const auto isOtherLevel = ! needTheSameLevels (settings, newSettings);

    settings = newSettings;

    if (! isExploring())
        return;

    if (isOtherColour && picture != nullptr)
    {
        paintImage();
        listeners.call (&Listener::exploredPictureChanged);
    }

    if (isOtherSource)
        updateSources();

    if (isOtherLevel)
    {
        updateScale();
        draw();
    }
}

void Explorer::setTimeView (const TimeView& newView)
{
    if (! isExploring())
        return;

    timeView = newView;
    draw();
    listeners.call (&Listener::exploredRangeChanged);
}

//==============================================================================
StillRequest Explorer::makeRequest() const
{
    auto request = sources;
    request.start = timeView.getStart();
    request.length = timeView.getLength();
    request.width = width;
    request.height = height;
    request.hop = settings.hop;
    request.hop.sampleRate = timeView.getSampleRate();
    request.minFreqFraction = settings.minFreqFraction;
    request.maxFreqFraction = settings.maxFreqFraction;
    request.scaleType = settings.scaleType;
    request.pointsKept = settings.pointsKept;
    return request;
}

bool Explorer::isPictureCurrent() const noexcept
{
    return picture != nullptr && ! picture->isCoarse() && showsTheSame (picture->getRequest(), makeRequest());
}

void Explorer::updateSources()
{
    sources = {};
    setSource (sources, sound, settings.source);
}

void Explorer::updateScale() { scale = scales.obtain (makeRequest()); }

void Explorer::draw()
{
    if (isExploring() && width > 0 && height > 0)
        drawer->draw (makeRequest());
}

void Explorer::takePicture (std::shared_ptr<const StillPicture> newPicture)
{
    picture = std::move (newPicture);
    paintImage();
    listeners.call (&Listener::exploredPictureChanged);
}

void Explorer::paintImage()
{
    image = settings.colours.map != nullptr ? picture->paint (settings.colours) : juce::Image();
}

void Explorer::readAgain()
{
    // A block that came after the freeze may have overwritten the oldest sound. If it is that, there is less of it now.
    if (double (sound->getStart()) <= timeView.getSoundStart())
        return;

    // The range that is looked at stays, with silence for what is lost.
    TimeView rest (double (sound->getStart()),
                   timeView.getSoundEnd(),
                   timeView.getSampleRate(),
                   timeView.getHomeStart(),
                   timeView.getHomeLength());
    rest.setRange (timeView.getStart(), timeView.getLength());
    timeView = rest;
    updateSources();
    draw();
}

} // namespace mk::orlo
