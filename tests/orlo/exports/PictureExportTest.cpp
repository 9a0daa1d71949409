// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/exports/PictureExport.h"

#include "plugin_core/look/LookAndFeel.h"
#include "tests/orlo/stills/MemorySource.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mk::orlo::test
{
namespace
{

/** The texts of a PNG by their names. */
[[nodiscard]] juce::StringPairArray readTexts (const juce::MemoryBlock& file)
{
    juce::StringPairArray texts;
    juce::MemoryInputStream stream (file, false);
    stream.setPosition (8);

    while (stream.getNumBytesRemaining() > 12)
    {
        const auto size = stream.readIntBigEndian();
        char type[5] {};
        stream.read (type, 4);
        const auto end = stream.getPosition() + size + 4;

        if (juce::String (type) == "iTXt")
        {
            const auto name = stream.readString();
            stream.skipNextBytes (2);
            std::ignore = stream.readString();
            std::ignore = stream.readString();
            juce::MemoryBlock value;
            stream.readIntoMemoryBlock (value, ssize_t (end - 4 - stream.getPosition()));
            texts.set (name, value.toString());
        }

        stream.setPosition (end);
    }

    return texts;
}

/** A picture with axes of a still that rises from left to right. */
class PictureExport : public testing::Test
{
protected:
    void draw (ExportSettings settings)
    {
        const auto& font = look.getFont (pluginCore::LookAndFeel::Face::semiBold);
        auto request = makeRequest ({}, 1000.0, 44100.0, 1, 1, true);
        request.scaleType = FrequencyScale::log;
        drawing = drawAxes (settings, getAxesRange (request, colours), {}, font, font);
        request.width = drawing.layout.plot.getWidth();
        request.height = drawing.layout.plot.getHeight();
        still = std::make_unique<StillPicture> (request, false, *memory);

        for (int y = 0; y < request.height; ++y)
            for (int x = 0; x < request.width; ++x)
                still->getRow (y)[size_t (x)] = -100.0f + 100.0f * float (x) / float (request.width);
    }

    [[nodiscard]] juce::MemoryBlock write (const TextEntries& texts = {}) const
    {
        juce::MemoryOutputStream stream;
        writePicture (drawing, *still, colours, texts, stream);
        return stream.getMemoryBlock();
    }

    pluginCore::LookAndFeel look;
    const StillColours colours { -100.0f, 0.0f, std::make_shared<const ColourMap> (5u) };
    AxesDrawing drawing;
    const std::shared_ptr<StillMemory> memory = std::make_shared<StillMemory>();
    std::unique_ptr<StillPicture> still;
};

TEST_F (PictureExport, WithoutAxesIsTheStillAlone)
{
    draw ({ 300, 200, "not drawn", false, true });
    const auto image = juce::ImageFileFormat::loadFrom (write().getData(), write().getSize());
    const auto expected = still->paint (colours);
    ASSERT_EQ (image.getBounds(), juce::Rectangle<int> (300, 200));

    for (int y = 0; y < 200; y += 7)
        for (int x = 0; x < 300; ++x)
            ASSERT_EQ (image.getPixelAt (x, y), expected.getPixelAt (x, y)) << x << " " << y;
}

TEST_F (PictureExport, IsTheSameInOnePieceAndInBands)
{
    for (const auto isLight : { true, false })
    {
        draw ({ 640, 401, "A title", true, isLight });
        const auto file = write();
        const auto image = juce::ImageFileFormat::loadFrom (file.getData(), file.getSize());
        const auto expected = makeImage (drawing, *still, colours);
        ASSERT_EQ (image.getBounds(), expected.getBounds());

        for (int y = 0; y < image.getHeight(); ++y)
            for (int x = 0; x < image.getWidth(); ++x)
            {
                // Parts of a pixel at the edge of a band may be rounded in another way.
                const auto found = image.getPixelAt (x, y);
                const auto wanted = expected.getPixelAt (x, y);
                ASSERT_NEAR (found.getRed(), wanted.getRed(), 2) << x << " " << y;
                ASSERT_NEAR (found.getBlue(), wanted.getBlue(), 2) << x << " " << y;
            }
    }
}

TEST_F (PictureExport, HasTheSpectrogramInsideOfItsAxesAtEverySize)
{
    for (const auto& [width, height] : { std::pair { 200, 150 }, { 1600, 1000 }, { 5000, 700 }, { 700, 3000 } })
    {
        draw ({ width, height, "A title", true, true });
        const auto& layout = drawing.layout;
        const juce::Rectangle<int> whole (width, height);
        EXPECT_TRUE (whole.contains (layout.plot));
        EXPECT_TRUE (whole.contains (layout.bar));
        EXPECT_GT (layout.bar.getX(), layout.plot.getRight());
        EXPECT_GT (layout.plot.getWidth(), width / 2);
        EXPECT_GT (layout.plot.getHeight(), height / 2);
        EXPECT_TRUE (whole.toFloat().contains (drawing.texts.getBounds())) << drawing.texts.getBounds().toString();
        EXPECT_FALSE (drawing.texts.getBounds().isEmpty());

        for (const auto& line : drawing.lines)
            EXPECT_FALSE (line.intersects (layout.plot)) << line.toString();
    }
}

TEST_F (PictureExport, HasItsPaperAndTheColoursOfItsLevels)
{
    draw ({ 800, 500, {}, true, false });
    const auto image = makeImage (drawing, *still, colours);
    const auto bar = drawing.layout.bar;
    EXPECT_EQ (image.getPixelAt (0, 0), drawing.paper);
    EXPECT_LT (drawing.paper.getBrightness(), 0.2f);
    EXPECT_EQ (image.getPixelAt (bar.getCentreX(), bar.getY()), colours.map->getColours().getLast());
    EXPECT_EQ (image.getPixelAt (bar.getCentreX(), bar.getBottom() - 1), colours.map->getColours().getFirst());
}

TEST_F (PictureExport, ATitleThatIsTooLongIsShortened)
{
    draw ({ 400, 300, juce::String::repeatedString ("long ", 200), true, true });
    EXPECT_TRUE (juce::Rectangle<float> (400.0f, 300.0f).contains (drawing.texts.getBounds()));
}

TEST_F (PictureExport, SaysItsSettingsAndItsRange)
{
    draw ({ 300, 200, {}, true, true });
    auto request = still->getRequest();
    request.minFreqFraction = 0.01f;
    const auto title = juce::String::fromUTF8 ("Stimme \xc3\xa4");
    const auto texts = readTexts (write (describe (request, colours, { title, "Program 1.0", 2.0 })));

    EXPECT_EQ (texts["Title"], title);
    EXPECT_EQ (texts["Software"], "Program 1.0");
    EXPECT_EQ (texts["Start"], "2.022676 s");
    EXPECT_EQ (texts["Length"], "1.000000 s");
    EXPECT_EQ (texts["Sample rate"], "44100 Hz");
    EXPECT_EQ (texts["Mode"], "Enhanced");
    EXPECT_EQ (texts["FFT size"], "2048");
    EXPECT_EQ (texts["Scale"], "Log");
    EXPECT_EQ (texts["Min frequency"], "220.50 Hz");
    EXPECT_EQ (texts["Max frequency"], "22050.00 Hz");
    EXPECT_EQ (texts["Floor"], "-100.0 dB");
    EXPECT_EQ (texts["Colour map"], "magma");
}

TEST_F (PictureExport, ATextEntryWithoutATitleHasNone)
{
    draw ({ 300, 200, {}, true, true });
    EXPECT_FALSE (readTexts (write (describe (still->getRequest(), colours, {}))).containsKey ("Title"));
}

} // namespace
} // namespace mk::orlo::test
