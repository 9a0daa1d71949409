// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PictureFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (PictureStart, IsTheLastPictureIfItsPathIsWhole)
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

TEST (PictureWriting, TakesThePlaceOfALongerFile)
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

TEST (PictureWriting, FailsWithoutAWord)
{
    const TemporaryFolder folder;
    const juce::Image image (juce::Image::RGB, 3, 2, true, juce::SoftwareImageType());
    EXPECT_FALSE (pictureFile::write (image, folder.get())) << "a folder";
    EXPECT_FALSE (pictureFile::write (image, folder.get().getChildFile ("none/a.png"))) << "in no folder";
    EXPECT_FALSE (pictureFile::write ({}, folder.get().getChildFile ("a.png"))) << "nothing to write";
    EXPECT_FALSE (folder.get().getChildFile ("a.png").exists());
}

} // namespace
} // namespace mk::orlo::test
