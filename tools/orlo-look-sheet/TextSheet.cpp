// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo::lookSheet
{
namespace
{
constexpr int rowHeight = 64;
constexpr int margin = 24;

class TextSheet final : public juce::Component
{
public:
    TextSheet()
    {
        add ("Title: Settings", 0, [] (auto& label) { label.getProperties().set ("grad", true); });
        add ("Heading: Analysis  Display  Colour", 1);
        add ("Label: FFT Size  Max Freq  Min Freq", 2);
        add (juce::CharPointer_UTF8 ("Échelle de fréquences: Mél, où, déjà, naïf, œuvre, ça"), 2);
        add (juce::CharPointer_UTF8 ("¿Tamaño de la ventana? ¡Más señal! Configuración, pingüino"), 2);
        add (juce::CharPointer_UTF8 ("Predefinições, não, você, àquele, três, órgão, útil"), 2);
        add (juce::CharPointer_UTF8 ("Più nitido, perché, così, però, città, È attivo"), 2);
        add ("440.00Hz (A3 +20cents)   22.1k  10k  5k  C3", 4);
        add ("Plain text in the bold face", 2, [] (auto& label) { label.getProperties().set ("bold", true); });
        add ("A disabled label", 2, [] (auto& label) { label.setEnabled (false); });
        setSize (1000, 2 * margin + rowHeight * labels.size());
    }

    void paint (juce::Graphics& g) override { g.fillAll (juce::Colour (pluginCore::palette::window)); }

    void resized() override
    {
        for (int i = 0; i < labels.size(); ++i)
            labels[i]->setBounds (margin, margin + i * rowHeight, getWidth() - 2 * margin, rowHeight);
    }

private:
    void add (const juce::String& text, int category, const std::function<void (juce::Label&)>& change = nullptr)
    {
        auto* label = labels.add (std::make_unique<juce::Label> (juce::String(), text));
        label->getProperties().set (pluginCore::styleProperty::cat, category);
        addAndMakeVisible (label);

        if (change != nullptr)
            change (*label);
    }

    juce::OwnedArray<juce::Label> labels;
};
} // namespace

std::unique_ptr<juce::Component> makeTextSheet() { return std::make_unique<TextSheet>(); }

} // namespace mk::orlo::lookSheet
