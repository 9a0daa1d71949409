// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/ConfirmDialogComponent.h"
#include "plugin_core/controls/FilledPathButton.h"

#include <memory>

namespace mk::pluginCore
{

/** The framework's drawing style: dark and flat, with its own fonts, on top of JUCE's. One instance is
    shared by all windows of a process. [message thread]

    Sizes depend on the width of the window that a component is in (ScaleRule.h), and components control their
    drawing by properties (StyleProperties.h). The colours are in Palette.cpp. */
class LookAndFeel : public juce::LookAndFeel_V4,
                    public FilledPathButton::LookAndFeelMethods,
                    public ConfirmDialogComponent::LookAndFeelMethods
{
public:
    /** The faces that are built into the program. */
    enum class Face
    {
        semiBold,  /**< Barlow SemiBold: all plain text */
        bold,      /**< Barlow Bold: titles and headings */
        monospaced /**< JetBrains Mono Medium: figures that change while they are read */
    };

    LookAndFeel();
    ~LookAndFeel() override;

    /** The face at a height of 14; use juce::Font::withHeight for another height. */
    [[nodiscard]] const juce::Font& getFont (Face face) const noexcept;

    /** The face at the text height of the component (scaleRule::textHeight). If its look and feel is of another
        class, JUCE's default face at that height, bold for Face::bold. */
    [[nodiscard]] static juce::Font getFontFor (const juce::Component& component, Face face);

    /** The face for text of a size class: bold for titles and headings (0, 1), monospaced for scales and
        readings (4), else semi-bold. */
    [[nodiscard]] static Face getFaceForCategory (int category) noexcept;

    /** The size in pixels of the window that was resized last, 100 by 100 before the first one. */
    void setEditorSize (int width, int height) noexcept;
    [[nodiscard]] int getEditorWidth() const noexcept { return editorWidth; }
    [[nodiscard]] int getEditorHeight() const noexcept { return editorHeight; }

    juce::Typeface::Ptr getTypefaceForFont (const juce::Font& font) override;

    void drawScrollbar (juce::Graphics& g,
                        juce::ScrollBar& scrollbar,
                        int x,
                        int y,
                        int width,
                        int height,
                        bool isVertical,
                        int thumbStart,
                        int thumbSize,
                        bool isMouseOver,
                        bool isMouseDown) override;

    void drawFileBrowserRow (juce::Graphics& g,
                             int width,
                             int height,
                             const juce::File& file,
                             const juce::String& filename,
                             juce::Image* fileImage,
                             const juce::String& sizeDescription,
                             const juce::String& timeDescription,
                             bool isDirectory,
                             bool isSelected,
                             int itemIndex,
                             juce::DirectoryContentsDisplayComponent& list) override;

    void drawLabel (juce::Graphics& g, juce::Label& label) override;

    /** A label with any of the properties cat, fontScale, bold and vertical gets its face and height from them,
        reduced to fit into the label; any other label keeps the font that it was given. */
    juce::Font getLabelFont (juce::Label& label) override;

    void drawFilledPathButton (juce::Graphics& g,
                               FilledPathButton& button,
                               const juce::Path& path,
                               bool isOver,
                               bool isDown) override;

    void layOutConfirmDialog (juce::Rectangle<int> dialog,
                              juce::Component& question,
                              juce::Component& confirm,
                              juce::Component& cancel) override;

    std::unique_ptr<juce::FocusOutline> createFocusOutlineForComponent (juce::Component& component) override;

protected:
    class MyCaretComponent;

    /** Draws the text of a label that is not being edited, in the current colour of g. */
    void drawLabelText (juce::Graphics& g, juce::Label& label);

    /** Draws a label's background, text and frame, the text at the given alpha if the label is disabled. */
    void drawLabelWithDisabledAlpha (juce::Graphics& g, juce::Label& label, float disabledAlpha);

private:
    struct MkFonts;

    std::shared_ptr<const MkFonts> mkFonts;
    juce::Font semiBoldFont, boldFont, monospacedFont;
    int editorWidth = 100;
    int editorHeight = 100;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LookAndFeel)
};

} // namespace mk::pluginCore
