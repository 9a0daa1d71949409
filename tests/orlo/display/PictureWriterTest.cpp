// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PictureWriter.h"

#include "tests/support/FailingDisk.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] juce::Image makePicture (int width)
{
    return { juce::Image::RGB, width, 10, true, juce::SoftwareImageType() };
}

TEST (PictureWriter, ReturnsBeforeThePictureIsWrittenOnItsThread)
{
    juce::WaitableEvent mayWrite;
    std::atomic isWritten { false };
    std::thread::id threadOfWriting;

    {
        PictureWriter writer (
            [&] (const juce::Image&, const juce::File&)
            {
                threadOfWriting = std::this_thread::get_id();
                mayWrite.wait();
                isWritten = true;
            });
        writer.write (makePicture (10), juce::File());
        EXPECT_FALSE (isWritten.load());
        mayWrite.signal();
    }

    EXPECT_TRUE (isWritten.load());
    EXPECT_NE (threadOfWriting, std::this_thread::get_id());
}

TEST (PictureWriter, WritesEverythingInOrderBeforeItIsDestroyed)
{
    juce::WaitableEvent mayWrite (true);
    std::vector<int> widths;

    {
        PictureWriter writer (
            [&] (const juce::Image& picture, const juce::File&)
            {
                mayWrite.wait();
                widths.push_back (picture.getWidth());
            });

        for (const auto width : { 3, 1, 2 })
            writer.write (makePicture (width), juce::File());

        mayWrite.signal();
    }

    EXPECT_EQ (widths, (std::vector { 3, 1, 2 }));
}

TEST (PictureWriter, WritesAgainAfterARest)
{
    std::vector<int> widths;
    juce::WaitableEvent isWritten;

    {
        PictureWriter writer (
            [&] (const juce::Image& picture, const juce::File&)
            {
                widths.push_back (picture.getWidth());
                isWritten.signal();
            });

        for (const auto width : { 1, 2, 3 })
        {
            writer.write (makePicture (width), juce::File());
            EXPECT_TRUE (isWritten.wait (10000.0));
        }
    }

    EXPECT_EQ (widths, (std::vector { 1, 2, 3 }));
}

TEST (PictureWriter, WritesNothingUnlessAsked)
{
    std::atomic numWritten { 0 };

    {
        const PictureWriter writer ([&] (const juce::Image&, const juce::File&) { ++numWritten; });
    }

    EXPECT_EQ (numWritten.load(), 0);
}

TEST (PictureWriter, WritesPicturesToFiles)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    PictureWriter().write (makePicture (20), file);
    EXPECT_EQ (juce::ImageFileFormat::loadFrom (file).getWidth(), 20);
}

#if JUCE_LINUX
TEST (PictureWriter, LeavesTheOlderPictureOnAFullDisk)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    PictureWriter().write (makePicture (20), file);

    {
        const FileSizeLimit limit (20);
        PictureWriter().write (makePicture (30), file);
    }

    EXPECT_EQ (juce::ImageFileFormat::loadFrom (file).getWidth(), 20);
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1);
}
#endif

} // namespace
} // namespace mk::orlo::test
