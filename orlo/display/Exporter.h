// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ExportDialog.h"
#include "ExportSubject.h"
#include "NoticeLine.h"

#include "orlo/exports/FileJobs.h"
#include "orlo/exports/SoundFile.h"
#include "orlo/stills/StillDrawer.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace mk::orlo
{

/** Carries out the part of the picture's menu that saves the kept sound: asks for settings and a file, draws what is
    to be drawn, and writes it on a thread of its own. What fails is said in one line. A file is replaced only by a whole
    one. Closing the window gives up pictures that are still being drawn and lists of points, and waits for what is being
    written. [message thread] */
class Exporter
{
public:
    /** @param software  name and version, for the files */
    explicit Exporter (const juce::String& software);
    ~Exporter();

    /** Tells what is seen at this moment, or nothing if no sound is kept. */
    std::function<std::optional<ExportSubject>()> findSubject;

    /** Asks for a file: a title, where to begin, patterns such as "*.png", and whom to tell the answer. */
    using ChooseFile = std::function<void (const juce::String& title,
                                           const juce::String& patterns,
                                           std::function<void (const juce::File&)> onChosen)>;
    ChooseFile chooseFile;

    /** Hidden; to be added to the picture. */
    [[nodiscard]] ExportDialog& getDialog() noexcept { return dialog; }
    [[nodiscard]] NoticeLine& getNotice() noexcept { return notice; }

    /** Carries out an item of the menu, if it is one of the exports. */
    void carryOut (int menuItem);

    /** Whether pictures are being drawn that are not written yet. */
    [[nodiscard]] bool isDrawing() const noexcept { return ! drawings.empty(); }

private:
    /** A picture to be drawn, and what is done with it. */
    struct Drawing
    {
        StillRequest request;
        std::function<void (std::shared_ptr<const StillPicture>)> use;
    };

    void exportPicture (const ExportSubject& subject, const ExportSettings& settings, const juce::File& file);
    void exportLevels (const ExportSubject& subject, const juce::File& file);
    void exportPoints (const ExportSubject& subject, const juce::File& file);
    void saveSound (const ExportSubject& subject, bool isAll, const juce::File& file);
    void copyPicture (const ExportSubject& subject);

    void draw (Drawing drawing);
    void drawNext();
    void finishDrawing (const std::shared_ptr<const StillPicture>& picture);
    void sayFailure (const juce::String& what, const juce::String& why);

    const juce::String software;
    ExportDialog dialog;
    NoticeLine notice;
    std::deque<Drawing> drawings; // the first is being drawn
    std::unique_ptr<StillDrawer> drawer;
    FileJobs jobs;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Exporter)
};

} // namespace mk::orlo
