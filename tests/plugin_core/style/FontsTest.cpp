// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

#include <set>

namespace mk::pluginCore
{
namespace
{
using Face = LookAndFeel::Face;

constexpr std::array allFaces { Face::semiBold, Face::bold, Face::monospaced };

// Every letter of the alphabets, with the marks that the languages put on them, and their punctuation.
constexpr const char* letters[] {
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
    " .,:;!?'\"()[]{}/\\+-*=<>%&#@_~|^`$",
    "ÀÂÆÇÉÈÊËÎÏÔŒÙÛÜŸàâæçéèêëîïôœùûüÿ«»", // French
    "ÁÉÍÑÓÚÜáéíñóúü¿¡ªº",                 // Spanish
    "ÁÂÃÀÇÉÊÍÓÔÕÚÜáâãàçéêíóôõúüªº",       // Brazilian Portuguese
    "ÀÈÉÌÍÎÒÓÙÚàèéìíîòóùú",               // Italian
    "‘’“”–—…·°©×€£",
};

TEST (FontsTest, EachFaceIsTheEmbeddedOne)
{
    const LookAndFeel style;
    EXPECT_EQ (style.getFont (Face::semiBold).getTypefacePtr()->getName(), "Barlow");
    EXPECT_EQ (style.getFont (Face::semiBold).getTypefacePtr()->getStyle(), "SemiBold");
    EXPECT_EQ (style.getFont (Face::bold).getTypefacePtr()->getName(), "Barlow");
    EXPECT_EQ (style.getFont (Face::bold).getTypefacePtr()->getStyle(), "Bold");
    EXPECT_EQ (style.getFont (Face::monospaced).getTypefacePtr()->getName(), "JetBrains Mono");
    EXPECT_EQ (style.getFont (Face::monospaced).getTypefacePtr()->getStyle(), "Medium");
}

TEST (FontsTest, FacesAreKeptAtAHeightOfFourteen)
{
    const LookAndFeel style;

    for (const auto face : allFaces)
        EXPECT_FLOAT_EQ (style.getFont (face).getHeight(), 14.0f);
}

TEST (FontsTest, EveryLetterOfTheFiveLanguagesHasAGlyphInEveryFace)
{
    const LookAndFeel style;

    for (const auto face : allFaces)
    {
        const auto typeface = style.getFont (face).getTypefacePtr();
        ASSERT_NE (typeface, nullptr);

        for (const auto* text : letters)
            for (juce::CharPointer_UTF8 p (text); ! p.isEmpty(); ++p)
                EXPECT_TRUE (typeface->getNominalGlyphForCodepoint (*p).has_value())
                    << typeface->getName() << ": U+" << std::hex << int (*p);
    }
}

TEST (FontsTest, AMissingLetterIsDetected)
{
    const LookAndFeel style;
    const auto typeface = style.getFont (Face::semiBold).getTypefacePtr();
    EXPECT_FALSE (typeface->getNominalGlyphForCodepoint (0x4E2D).has_value());
}

TEST (FontsTest, DigitsOfTheMonospacedFaceHaveTheSameWidth)
{
    const LookAndFeel style;
    const auto font = style.getFont (Face::monospaced).withHeight (20.0f);
    const auto width = juce::GlyphArrangement::getStringWidth (font, "0000");

    for (const auto* text : { "1111", "4.7k", "C#3 ", "+-()" })
        EXPECT_NEAR (juce::GlyphArrangement::getStringWidth (font, text), width, 0.01f) << text;
}

TEST (FontsTest, TitlesAndHeadingsAreBoldAndScalesMonospaced)
{
    EXPECT_EQ (LookAndFeel::getFaceForCategory (0), Face::bold);
    EXPECT_EQ (LookAndFeel::getFaceForCategory (1), Face::bold);
    EXPECT_EQ (LookAndFeel::getFaceForCategory (2), Face::semiBold);
    EXPECT_EQ (LookAndFeel::getFaceForCategory (3), Face::semiBold);
    EXPECT_EQ (LookAndFeel::getFaceForCategory (4), Face::monospaced);
    EXPECT_EQ (LookAndFeel::getFaceForCategory (7), Face::semiBold);
}

TEST (FontsTest, TextWithoutAFaceIsSetInTheProgramsOwn)
{
    LookAndFeel style;
    const auto plain = style.getTypefaceForFont (juce::FontOptions (20.0f));
    const auto bold = style.getTypefaceForFont (juce::FontOptions (20.0f, juce::Font::bold));
    const auto mono = style.getTypefaceForFont (
        juce::FontOptions (juce::Font::getDefaultMonospacedFontName(), 20.0f, juce::Font::plain));

    EXPECT_EQ (plain, style.getFont (Face::semiBold).getTypefacePtr());
    EXPECT_EQ (bold, style.getFont (Face::bold).getTypefacePtr());
    EXPECT_EQ (mono, style.getFont (Face::monospaced).getTypefacePtr());
}

TEST (FontsTest, AComponentGetsAFaceAtItsOwnHeight)
{
    orlo::test::StyledWindow<LookAndFeel> window (909);
    juce::Component component;
    component.getProperties().set (styleProperty::cat, 4);
    window.add (component, { 0, 0, 100, 100 });

    const auto font = LookAndFeel::getFontFor (component, Face::monospaced);
    EXPECT_FLOAT_EQ (font.getHeight(), 12.5f);
    EXPECT_EQ (font.getTypefacePtr(), window.style.getFont (Face::monospaced).getTypefacePtr());
}

TEST (FontsTest, WithAnotherStyleAComponentStillGetsTheHeight)
{
    juce::LookAndFeel_V4 other;
    juce::Component component;
    component.setLookAndFeel (&other);
    EXPECT_FLOAT_EQ (LookAndFeel::getFontFor (component, Face::bold).getHeight(), 33.0f);
    component.setLookAndFeel (nullptr);
}

TEST (FontsTest, TheWindowsSizeIsAHundredBeforeTheFirstWindow)
{
    LookAndFeel style;
    EXPECT_EQ (style.getEditorWidth(), 100);
    EXPECT_EQ (style.getEditorHeight(), 100);
    style.setEditorSize (1818, 1000);
    EXPECT_EQ (style.getEditorWidth(), 1818);
    EXPECT_EQ (style.getEditorHeight(), 1000);
}
} // namespace
} // namespace mk::pluginCore
