// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PictureFile.h"

#include "tests/support/FailingDisk.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (PictureStart, IsTheLastPictureIfItsPathIsAbsolute)
{
    EXPECT_EQ (pictureFile::chooseStart ("/pictures/a.png"), juce::File ("/pictures/a.png"));
    EXPECT_EQ (pictureFile::chooseStart ("~/a.png"),
               juce::File::getSpecialLocation (juce::File::userHomeDirectory).getChildFile ("a.png"));
}

TEST (PictureStart, IsTheFolderOfPicturesOtherwise)
{
    const auto pictures = juce::File::getSpecialLocation (juce::File::userPicturesDirectory);
    EXPECT_EQ (pictureFile::chooseStart (""), pictures);
    EXPECT_EQ (pictureFile::chooseStart ("a.png"), pictures) << "a relative path is ignored";
    EXPECT_EQ (pictureFile::chooseStart ("../a.png"), pictures);
}

TEST (PictureName, EndsInPng)
{
    EXPECT_EQ (pictureFile::withPngExtension (juce::File ("/a/picture")), juce::File ("/a/picture.png"));
    EXPECT_EQ (pictureFile::withPngExtension (juce::File ("/a/picture.png")), juce::File ("/a/picture.png"));
    EXPECT_EQ (pictureFile::withPngExtension (juce::File ("/a/picture.PNG")), juce::File ("/a/picture.PNG"));
    EXPECT_EQ (pictureFile::withPngExtension (juce::File ("/a/picture.jpg")), juce::File ("/a/picture.png"));
}

TEST (PictureWriting, ReplacesALongerFile)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    ASSERT_TRUE (file.replaceWithText (juce::String::repeatedString ("something else ", 10000)));

    juce::Image image (juce::Image::RGB, 3, 2, true, juce::SoftwareImageType());
    image.setPixelAt (2, 1, juce::Colours::orange);
    ASSERT_TRUE (pictureFile::write (image, file));
    EXPECT_LT (file.getSize(), 1000);

    const auto read = juce::ImageFileFormat::loadFrom (file);
    ASSERT_EQ (read.getBounds(), image.getBounds());
    EXPECT_EQ (read.getPixelAt (2, 1), juce::Colours::orange);
}

#if JUCE_LINUX
/** A picture of noise, which compression cannot make small. */
[[nodiscard]] juce::Image makeNoise (int width, int height)
{
    juce::Image image (juce::Image::RGB, width, height, true, juce::SoftwareImageType());
    juce::Random random (1);

    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelAt (x, y, juce::Colour (juce::uint32 (random.nextInt())).withAlpha (1.0f));

    return image;
}

TEST (PictureWriting, OnAFullDiskLeavesTheOlderPicture)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    ASSERT_TRUE (file.replaceWithText ("the older picture"));

    {
        const FileSizeLimit limit (10000);
        EXPECT_FALSE (pictureFile::write (makeNoise (200, 100), file));
    }

    EXPECT_EQ (file.loadFileAsString(), "the older picture");
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1) << "left by the write";
}

TEST (PictureWriting, InAReadOnlyFolderLeavesTheOlderPicture)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    ASSERT_TRUE (file.replaceWithText ("the older picture"));

    {
        const ReadOnlyFolder readOnly (folder.get());
        EXPECT_FALSE (pictureFile::write (makeNoise (20, 10), file));
        EXPECT_FALSE (pictureFile::write (makeNoise (20, 10), folder.get().getChildFile ("b.png")));
    }

    EXPECT_EQ (file.loadFileAsString(), "the older picture");
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1);
}

TEST (PictureWriting, FollowsALinkToItsFile)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.png");
    const auto link = folder.get().getChildFile ("link.png");
    ASSERT_TRUE (file.replaceWithText ("the older picture"));
    ASSERT_TRUE (file.createSymbolicLink (link, false));
    ASSERT_TRUE (pictureFile::write (makeNoise (20, 10), link));
    EXPECT_TRUE (link.isSymbolicLink());
    EXPECT_TRUE (juce::ImageFileFormat::loadFrom (file).isValid());
}
#endif

TEST (PictureWriting, CreatesTheFolder)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("new/a.png");
    EXPECT_TRUE (pictureFile::write ({ juce::Image::RGB, 3, 2, true, juce::SoftwareImageType() }, file));
    EXPECT_TRUE (juce::ImageFileFormat::loadFrom (file).isValid());
}

TEST (PictureWriting, ReportsAFailure)
{
    const TemporaryFolder folder;
    const juce::Image image (juce::Image::RGB, 3, 2, true, juce::SoftwareImageType());
    EXPECT_FALSE (pictureFile::write (image, folder.get())) << "the target is a folder";
    ASSERT_TRUE (folder.get().getChildFile ("file").create());
    EXPECT_FALSE (pictureFile::write (image, folder.get().getChildFile ("file/a.png"))) << "the parent is a file";
    EXPECT_FALSE (pictureFile::write ({}, folder.get().getChildFile ("a.png"))) << "the image is null";
    EXPECT_FALSE (folder.get().getChildFile ("a.png").exists());
}

} // namespace
} // namespace mk::orlo::test
