// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Exporter.h"

#include "ContextMenu.h"
#include "PictureClipboard.h"

#include "orlo/exports/NumberFiles.h"
#include "orlo/exports/PictureExport.h"
#include "plugin_core/files/FileReplacement.h"
#include "plugin_core/look/LookAndFeel.h"

#include <system_error>
#include <utility>

namespace mk::orlo
{
namespace
{
using Face = pluginCore::LookAndFeel::Face;

[[nodiscard]] juce::File withExtension (const juce::File& file, const char* extension)
{
    return file.hasFileExtension (extension) ? file : juce::File (file.getFullPathName() + "." + extension);
}

[[nodiscard]] ExportOrigin getOrigin (const juce::String& software) { return { {}, software, 0.0 }; }

[[nodiscard]] AxesWords getWords()
{
    return { juce::translate ("Time"), juce::translate ("Frequency"), juce::translate ("Level") };
}

[[nodiscard]] FileJobs::Job
    replacing (const juce::File& file,
               std::function<juce::Result (juce::OutputStream&, const FileJobs::ShouldGoOn&)> write)
{
    return [file, action = std::move (write)] (const FileJobs::ShouldGoOn& shouldGoOn)
    {
        return pluginCore::replaceFileInPieces (
            file, [&] (juce::OutputStream& stream) { return action (stream, shouldGoOn); });
    };
}

/** The quieter of both, since what is quieter than that is not seen either. */
[[nodiscard]] float getLowestSeen (const StillColours& colours) noexcept
{
    return juce::jmin (colours.floorDb, colours.ceilingDb);
}
} // namespace

Exporter::Exporter (const juce::String& softwareName) : software (softwareName)
{
    jobs.onFinished = [this] (const juce::String& name, const juce::Result& result)
    {
        if (result.failed())
            sayFailure (juce::translate ("Could not write") + " " + name, result.getErrorMessage());
    };
}

Exporter::~Exporter() = default;

void Exporter::carryOut (int menuItem)
{
    if (menuItem < contextMenu::exportStill || menuItem > contextMenu::exportPoints)
        return;

    const auto subject = findSubject();

    if (! subject)
        return;

    notice.show ({});

    switch (menuItem)
    {
        case contextMenu::exportStill:
            dialog.onAccepted = [this, shown = *subject] (const ExportSettings& settings)
            {
                chooseFile (juce::translate ("Export picture"),
                            "*.png",
                            [this, shown, settings] (const juce::File& file)
                            { exportPicture (shown, settings, withExtension (file, "png")); });
            };
            dialog.setDefaultSize (1600, 1000);
            dialog.open();
            break;

        case contextMenu::saveVisibleSound:
        case contextMenu::saveAllSound:
            chooseFile (juce::translate ("Save sound"),
                        "*.wav;*.flac",
                        [this, shown = *subject, isAll = menuItem == contextMenu::saveAllSound] (const juce::File& file)
                        { saveSound (shown, isAll, file); });
            break;

        case contextMenu::exportLevels:
            chooseFile (juce::translate ("Export numbers"),
                        "*.npy",
                        [this, shown = *subject] (const juce::File& file)
                        { exportLevels (shown, withExtension (file, "npy")); });
            break;

        case contextMenu::exportPoints:
            chooseFile (juce::translate ("Export numbers"),
                        "*.csv",
                        [this, shown = *subject] (const juce::File& file)
                        { exportPoints (shown, withExtension (file, "csv")); });
            break;

        case contextMenu::copyPicture: copyPicture (*subject); break;
        default: break;
    }
}

//==============================================================================
void Exporter::exportPicture (const ExportSubject& subject, const ExportSettings& settings, const juce::File& file)
{
    // The shapes of the texts are made here, since the thread that writes must not use fonts.
    auto drawing = drawAxes (settings,
                             getAxesRange (subject.request, subject.colours),
                             getWords(),
                             pluginCore::LookAndFeel::getFontFor (dialog, Face::semiBold),
                             pluginCore::LookAndFeel::getFontFor (dialog, Face::bold));
    auto request = subject.request;
    request.width = drawing.layout.plot.getWidth();
    request.height = drawing.layout.plot.getHeight();

    auto origin = getOrigin (software);
    origin.title = settings.title.trim();

    draw ({ request,
            [this, file, drawing, colours = subject.colours, texts = describe (request, subject.colours, origin)] (
                const std::shared_ptr<const StillPicture>& picture)
            {
                jobs.add (file.getFileName(),
                          replacing (file,
                                     [=] (juce::OutputStream& stream, const FileJobs::ShouldGoOn&)
                                     {
                                         writePicture (drawing, *picture, colours, texts, stream);
                                         return juce::Result::ok();
                                     }));
            } });
}

void Exporter::exportLevels (const ExportSubject& subject, const juce::File& file)
{
    const auto description = describeLevels (subject.request, subject.colours, getOrigin (software));

    draw ({ subject.request,
            [this, file, description] (const std::shared_ptr<const StillPicture>& picture)
            {
                const auto beside = file.withFileExtension ("json");
                jobs.add (file.getFileName(),
                          replacing (file,
                                     [picture] (juce::OutputStream& stream, const FileJobs::ShouldGoOn&)
                                     {
                                         writeLevels (*picture, stream);
                                         return juce::Result::ok();
                                     }));
                jobs.add (beside.getFileName(),
                          replacing (beside,
                                     [description] (juce::OutputStream& stream, const FileJobs::ShouldGoOn&)
                                     {
                                         stream << description;
                                         return juce::Result::ok();
                                     }));
            } });
}

void Exporter::exportPoints (const ExportSubject& subject, const juce::File& file)
{
    jobs.add (file.getFileName(),
              replacing (file,
                         [request = subject.request, lowest = getLowestSeen (subject.colours)] (
                             juce::OutputStream& stream, const FileJobs::ShouldGoOn& shouldGoOn)
                         {
                             const auto isWhole =
                                 writePoints (request, lowest, stream, [&] (double) { return shouldGoOn(); });
                             return isWhole ? juce::Result::ok() : juce::Result::fail ("cancelled");
                         }));
}

void Exporter::saveSound (const ExportSubject& subject, bool isAll, const juce::File& chosen)
{
    const auto isFlac = chosen.hasFileExtension ("flac");
    const auto file = isFlac ? chosen : withExtension (chosen, "wav");
    const auto& request = subject.request;
    const auto start = isAll ? subject.sound->getStart() : std::int64_t (std::floor (request.start));
    const auto end = isAll ? subject.sound->getEnd() : std::int64_t (std::ceil (request.start + request.length));

    jobs.add (file.getFileName(),
              replacing (file,
                         [=, sound = subject.sound] (juce::OutputStream& stream, const FileJobs::ShouldGoOn&)
                         {
                             const auto format = isFlac ? SoundFormat::flac : SoundFormat::wav;
                             return writeSound (*sound, start, end, format, stream, [] (double) { return true; });
                         }));
}

void Exporter::copyPicture (const ExportSubject& subject)
{
    draw ({ subject.request,
            [this, colours = subject.colours] (const std::shared_ptr<const StillPicture>& picture)
            {
                if (! pictureClipboard::copy (picture->paint (colours)))
                    sayFailure (juce::translate ("Could not copy the picture"), {});
            } });
}

//==============================================================================
void Exporter::draw (Drawing drawing)
{
    drawings.push_back (std::move (drawing));

    if (drawings.size() == 1)
        drawNext();
}

void Exporter::drawNext()
{
    try
    {
        if (drawer == nullptr)
        {
            drawer = std::make_unique<StillDrawer> (StillPriority::background);
            drawer->onPicture = [this] (const std::shared_ptr<const StillPicture>& picture)
            {
                if (! picture->isCoarse())
                    finishDrawing (picture);
            };
            drawer->onFailure = [this] (const juce::String& why)
            {
                sayFailure (juce::translate ("Could not draw the picture"), why);
                finishDrawing (nullptr);
            };
        }

        // Else a picture that was the last one would not come again.
        drawer->cancel();
        drawer->draw (drawings.front().request);
    }
    catch (const std::exception& exception)
    {
        sayFailure (juce::translate ("Could not draw the picture"), exception.what());
        drawings.clear();
    }
}

void Exporter::finishDrawing (const std::shared_ptr<const StillPicture>& picture)
{
    if (drawings.empty())
        return;

    const auto use = std::move (drawings.front().use);
    drawings.pop_front();

    if (picture != nullptr)
        use (picture);

    if (! drawings.empty())
        drawNext();
    else
        drawer->cancel(); // it would keep the sound
}

void Exporter::sayFailure (const juce::String& what, const juce::String& why)
{
    notice.show (why.isEmpty() ? what : what + ": " + why.replaceCharacters ("\r\n", "  "));
}

} // namespace mk::orlo
