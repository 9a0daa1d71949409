// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/Exporter.h"

#include "orlo/display/ContextMenu.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/stills/HistorySource.h"
#include "orlo/stills/MakeStill.h"
#include "tests/support/FailingDisk.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Pictures.h"
#include "tests/support/Signals.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <juce_audio_formats/juce_audio_formats.h>

#include <string_view>

namespace mk::orlo::test
{
namespace
{

/** Exports of a second of noise, whose file is chosen without a dialog. */
class ExporterTest : public testing::Test
{
protected:
    ExporterTest()
    {
        const auto noise = makeQuietNoise (44100);
        const auto* const channel = noise.data();
        sound->push (&channel, 1, 44100, {});

        subject.sound = sound;
        setSource (subject.request, sound, Source::mean);
        subject.request.start = 11025.0;
        subject.request.length = 22050.0;
        subject.request.width = 300;
        subject.request.height = 200;
        subject.colours = { -100.0f, 0.0f, std::make_shared<const ColourMap> (3u) };

        parent.setLookAndFeel (&look);
        parent.setSize (900, 600);
        parent.addChildComponent (exporter.getDialog());
        parent.addChildComponent (exporter.getNotice());
        exporter.findSubject = [this] { return isKept ? std::optional (subject) : std::nullopt; };
        exporter.chooseFile =
            [this] (const juce::String&, const juce::String&, const std::function<void (const juce::File&)>& onChosen)
        { onChosen (folder.get().getChildFile (name)); };
    }

    ~ExporterTest() override { parent.setLookAndFeel (nullptr); }

    [[nodiscard]] juce::File getFile (const juce::String& fileName) const
    {
        return folder.get().getChildFile (fileName);
    }

    [[nodiscard]] bool waitFor (const juce::String& fileName) const
    {
        return pumpUntil ([this, fileName] { return getFile (fileName).existsAsFile(); });
    }

    [[nodiscard]] bool waitForNotice()
    {
        return pumpUntil ([this] { return exporter.getNotice().isVisible(); });
    }

    /** The number of samples in a file. */
    [[nodiscard]] static juce::int64 countSamples (const juce::File& file)
    {
        juce::AudioFormatManager formats;
        formats.registerBasicFormats();
        const std::unique_ptr<juce::AudioFormatReader> reader (formats.createReaderFor (file));
        return reader != nullptr ? reader->lengthInSamples : -1;
    }

    const std::shared_ptr<KeptSound> sound = std::make_shared<KeptSound> (44100.0, 1, 44100);
    ExportSubject subject;
    bool isKept = true;
    juce::String name = "a";
    TemporaryFolder folder;
    PluginLookAndFeel look;
    juce::Component parent;
    Exporter exporter { "Program 1.0" };
};

TEST_F (ExporterTest, SavesThePictureOfTheRangeAtTheSizeThatWasTyped)
{
    exporter.carryOut (contextMenu::exportStill);
    auto& dialog = exporter.getDialog();
    ASSERT_TRUE (dialog.isVisible());
    dialog.getWidthField().setText ("500");
    dialog.getHeightField().setText ("400");
    dialog.getTitleField().setText ("Noise");
    dialog.keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    ASSERT_TRUE (waitFor ("a.png"));

    const auto image = juce::ImageFileFormat::loadFrom (getFile ("a.png"));
    EXPECT_EQ (image.getBounds(), juce::Rectangle<int> (500, 400));
    EXPECT_EQ (image.getPixelAt (0, 0), juce::Colours::white);

    juce::MemoryBlock file;
    ASSERT_TRUE (getFile ("a.png").loadFileAsData (file));
    EXPECT_NE (std::string_view (static_cast<const char*> (file.getData()), file.getSize()).find ("Noise"),
               std::string_view::npos);
    EXPECT_FALSE (exporter.getNotice().isVisible());
}

TEST_F (ExporterTest, TheSamePictureCanBeExportedTwiceAndSeveralAtOnce)
{
    const auto exportAs = [this] (const juce::String& fileName)
    {
        name = fileName;
        exporter.carryOut (contextMenu::exportStill);
        exporter.getDialog().keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    };

    exportAs ("a.png");
    exportAs ("b.png");
    ASSERT_TRUE (waitFor ("a.png"));
    ASSERT_TRUE (waitFor ("b.png"));
    exportAs ("c.png");
    ASSERT_TRUE (waitFor ("c.png"));
    EXPECT_TRUE (getFile ("a.png").hasIdenticalContentTo (getFile ("c.png")));
    EXPECT_FALSE (exporter.isDrawing());
}

TEST_F (ExporterTest, SavesTheVisibleSoundOrAll)
{
    name = "visible";
    exporter.carryOut (contextMenu::saveVisibleSound);
    name = "all.flac";
    exporter.carryOut (contextMenu::saveAllSound);
    ASSERT_TRUE (waitFor ("visible.wav"));
    ASSERT_TRUE (waitFor ("all.flac"));
    EXPECT_EQ (countSamples (getFile ("visible.wav")), 22050);
    EXPECT_EQ (countSamples (getFile ("all.flac")), 44100);
}

TEST_F (ExporterTest, SavesLevelsWithTheirDescription)
{
    exporter.carryOut (contextMenu::exportLevels);
    ASSERT_TRUE (waitFor ("a.npy"));
    ASSERT_TRUE (waitFor ("a.json"));

    juce::MemoryBlock file;
    ASSERT_TRUE (getFile ("a.npy").loadFileAsData (file));
    const auto array = readNpy (file);
    const auto still = makeStill (subject.request, 1, [] (double) { return true; });
    ASSERT_EQ (array.rows, 200);
    ASSERT_EQ (array.columns, 300);
    EXPECT_EQ (array.get (50, 100), still->getDecibels (100, 50));
    EXPECT_EQ (juce::JSON::parse (getFile ("a.json"))["settings"]["Software"], "Program 1.0");
}

TEST_F (ExporterTest, SavesThePoints)
{
    exporter.carryOut (contextMenu::exportPoints);
    ASSERT_TRUE (waitFor ("a.csv"));
    juce::StringArray lines;
    getFile ("a.csv").readLines (lines);
    EXPECT_GT (lines.size(), 1000);
    EXPECT_EQ (lines[0], "time (s),frequency (Hz),level (dB)");
}

TEST_F (ExporterTest, DoesNothingWithoutASoundOrForAnotherItem)
{
    exporter.carryOut (contextMenu::freeze);
    isKept = false;
    exporter.carryOut (contextMenu::exportStill);
    exporter.carryOut (contextMenu::exportPoints);
    EXPECT_FALSE (exporter.getDialog().isVisible());
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
}

TEST_F (ExporterTest, SaysInOneLineWhatFailed)
{
    ASSERT_TRUE (getFile ("a.wav").createDirectory());
    exporter.carryOut (contextMenu::saveAllSound);
    ASSERT_TRUE (waitForNotice());
    EXPECT_TRUE (exporter.getNotice().getText().startsWith ("Could not write a.wav: "));

    // The line goes with the next act.
    exporter.carryOut (contextMenu::exportPoints);
    EXPECT_FALSE (exporter.getNotice().isVisible());
    ASSERT_TRUE (waitFor ("a.csv"));
}

TEST_F (ExporterTest, SaysThatTheSoundIsNotKeptAnyMore)
{
    const Samples more (88200);
    const auto* const channel = more.data();
    sound->push (&channel, 1, 44100, {});
    exporter.carryOut (contextMenu::exportLevels);
    ASSERT_TRUE (waitForNotice());
    EXPECT_TRUE (exporter.getNotice().getText().startsWith ("Could not draw the picture: "));
    EXPECT_FALSE (exporter.isDrawing());
    EXPECT_FALSE (getFile ("a.npy").exists());
}

#if JUCE_LINUX

TEST_F (ExporterTest, AFullDiskLeavesTheFormerFileAndIsSaid)
{
    ASSERT_TRUE (getFile ("a.wav").replaceWithText ("former"));

    {
        const FileSizeLimit limit (1000);
        exporter.carryOut (contextMenu::saveAllSound);
        ASSERT_TRUE (waitForNotice());
    }

    EXPECT_EQ (getFile ("a.wav").loadFileAsString(), "former");
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1);
}

#endif

TEST (ExporterAtItsEnd, WritesWhatWasChosenAndGivesUpWhatIsBeingDrawn)
{
    const TemporaryFolder folder;
    const auto sound = std::make_shared<KeptSound> (44100.0, 1, 44100);
    const auto noise = makeQuietNoise (44100);
    const auto* const channel = noise.data();
    sound->push (&channel, 1, 44100, {});

    ExportSubject subject { sound, {}, { -100.0f, 0.0f, std::make_shared<const ColourMap> (3u) } };
    setSource (subject.request, sound, Source::mean);
    subject.request.length = 44100.0;
    subject.request.width = 4000;
    subject.request.height = 2000;

    {
        Exporter exporter { "Program 1.0" };
        exporter.findSubject = [&] { return std::optional (subject); };
        exporter.chooseFile =
            [&] (const juce::String&, const juce::String&, const std::function<void (const juce::File&)>& onChosen)
        { onChosen (folder.get().getChildFile ("a")); };
        exporter.carryOut (contextMenu::saveAllSound);
        exporter.carryOut (contextMenu::exportLevels);
    }

    EXPECT_TRUE (folder.get().getChildFile ("a.wav").existsAsFile());
    EXPECT_FALSE (folder.get().getChildFile ("a.npy").existsAsFile());
}

} // namespace
} // namespace mk::orlo::test
