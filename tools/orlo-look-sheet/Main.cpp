// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <iostream>

namespace mk::orlo::lookSheet
{
namespace
{
/** A plug-in window of a given size. The style scales text and corners by the window's width. */
struct Window final : public juce::AudioProcessorEditor
{
    Window (juce::AudioProcessor& owner, juce::LookAndFeel& style, int width) : juce::AudioProcessorEditor (owner)
    {
        setLookAndFeel (&style);
        setSize (width, juce::roundToInt (float (width) / 1.818f));
    }

    ~Window() override { setLookAndFeel (nullptr); }
};

bool write (juce::Component& sheet, const juce::File& file, float scale)
{
    const auto picture = sheet.createComponentSnapshot (sheet.getLocalBounds(), true, scale);
    file.deleteFile();
    juce::FileOutputStream stream (file);
    return stream.openedOk() && juce::PNGImageFormat().writeImageToStream (picture, stream);
}

bool writeAll (const juce::File& folder)
{
    AudioPluginAudioProcessor processor;
    PluginLookAndFeel style;
    juce::LookAndFeel::setDefaultLookAndFeel (&style);
    bool ok = folder.createDirectory().wasOk();

    const auto show = [&] (const juce::String& name, std::unique_ptr<juce::Component> sheet, int width, float scale)
    {
        Window window (processor, style, width);
        style.setEditorSize (window.getWidth(), window.getHeight());
        window.addAndMakeVisible (*sheet);
        ok = write (*sheet, folder.getChildFile (name + ".png"), scale) && ok;
    };

    for (const auto scale : { 1.0f, 1.5f, 2.0f })
        show ("icons-" + juce::String (scale, 1), makeIconSheet(), 1818, scale);

    for (const auto width : { 1818, 1050, 600 })
        show ("widgets-" + juce::String (width), makeWidgetSheet (width), width, 1.0f);

    show ("text", makeTextSheet(), 1818, 1.0f);
    show ("menu", makeMenuSheet(), 1818, 1.0f);
    juce::LookAndFeel::setDefaultLookAndFeel (nullptr);

    forEachPanel ([&] (const juce::String& name, juce::Component& window)
                  { ok = write (window, folder.getChildFile (name + ".png"), 1.0f) && ok; });
    return ok;
}
} // namespace
} // namespace mk::orlo::lookSheet

int main (int argc, char* argv[])
{
    if (argc != 2)
    {
        std::cerr << "usage: orlo-look-sheet FOLDER\n";
        return 1;
    }

    // Without a window manager the X server does not know some window properties and reports errors. These end
    // the program unless JUCE handles them, which it does only for applications.
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
    const juce::ScopedJuceInitialiser_GUI juce;
    const auto folder = juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (argv[1]));

    if (mk::orlo::lookSheet::writeAll (folder))
        return 0;

    std::cerr << "orlo-look-sheet: " << folder.getFullPathName() << " could not be written\n";
    return 1;
}
