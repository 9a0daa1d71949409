// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetReference.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{

[[nodiscard]] PresetFolders makeFolders()
{
    const auto base = juce::File::getSpecialLocation (juce::File::tempDirectory).getChildFile ("references");
    const auto factory = base.getChildFile ("factory");
    return { factory.getFullPathName(),
             base.getChildFile ("user").getFullPathName(),
             base.getChildFile ("designers").getFullPathName(),
             factory.getChildFile ("Init.mkpreset").getFullPathName(),
             ".mkpreset" };
}

[[nodiscard]] juce::String toText (const PresetReference& reference)
{
    juce::XmlElement xml ("lastPreset");
    reference.writeTo (xml);
    return xml.toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
}

TEST (PresetReference, NamesTheRootAndThePathBelowIt)
{
    const auto folders = makeFolders();
    const auto roots = folders.getRoots();
    const auto make = [&folders] (const juce::File& file)
    { return toText (PresetReference::fromFile (file, folders)); };

    EXPECT_EQ (make (roots[0].getChildFile ("A.mkpreset")), "<lastPreset root=\"FACTORY\" path=\"A.mkpreset\"/>");
    EXPECT_EQ (make (roots[1].getChildFile ("x/y/B.mkpreset")), "<lastPreset root=\"USER\" path=\"x/y/B.mkpreset\"/>");
    EXPECT_EQ (make (roots[2].getChildFile ("C.mkpreset")), "<lastPreset root=\"DESIGNER\" path=\"C.mkpreset\"/>");
}

TEST (PresetReference, TheFirstFolderThatHoldsTheFileWins)
{
    auto folders = makeFolders();
    folders.userFolder = folders.factoryFolder;
    folders.designersFolder = folders.factoryFolder;
    const auto file = folders.getRoots()[0].getChildFile ("A.mkpreset");
    EXPECT_EQ (PresetReference::fromFile (file, folders).rootIndex, PresetReference::FACTORY);
}

TEST (PresetReference, AFileOutsideAllFoldersHasNoRootAndAnEmptyPath)
{
    const auto folders = makeFolders();
    const auto outside = juce::File::getSpecialLocation (juce::File::tempDirectory).getChildFile ("A.mkpreset");
    const auto reference = PresetReference::fromFile (outside, folders);

    EXPECT_EQ (reference.rootIndex, PresetReference::noRoot);
    EXPECT_EQ (toText (reference), "<lastPreset path=\"\"/>");
    EXPECT_EQ (reference.resolve (folders), juce::File());
}

TEST (PresetReference, IsReadBackFromItsAttributes)
{
    const auto folders = makeFolders();

    for (const auto& root : folders.getRoots())
    {
        const auto file = root.getChildFile ("x").getChildFile ("A.mkpreset");
        juce::XmlElement xml ("defaultPreset");
        PresetReference::fromFile (file, folders).writeTo (xml);
        EXPECT_EQ (PresetReference::fromXml (xml).resolve (folders), file);
    }
}

TEST (PresetReference, AnUnknownRootResolvesToNoFile)
{
    for (const auto* text : { "<a root='factory' path='A.mkpreset'/>",
                              "<a root='' path='A.mkpreset'/>",
                              "<a path='A.mkpreset'/>",
                              "<a root='USER'/>",
                              "<a root='USER' path=''/>",
                              "<a/>" })
        EXPECT_EQ (PresetReference::fromXml (*juce::parseXML (text)).resolve (makeFolders()), juce::File()) << text;
}

TEST (PresetReference, APathThatLeadsOutOfTheFolderResolvesToNoFile)
{
    for (const auto* path : { "../A.mkpreset", "x/../../A.mkpreset", "..", ".", "/A.mkpreset", "~/A.mkpreset" })
        EXPECT_EQ ((PresetReference { PresetReference::USER, path }.resolve (makeFolders())), juce::File()) << path;
}

} // namespace
} // namespace mk::pluginCore
