// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/PluginHeaderComponent.h"
#include "plugin_core/controls/PresetsBar.h"
#include "plugin_core/look/LookAndFeel.h"

namespace mk::orlo
{

/** The product's drawing style: buttons, boxes, menus and sliders. [message thread] */
class PluginLookAndFeel : public pluginCore::LookAndFeel,
                          public pluginCore::PluginHeaderComponent::LookAndFeelMethods,
                          public pluginCore::PresetsBar::LookAndFeelMethods
{
public:
    /** The text box of a slider: it passes mouse events on to the slider, unless it is being edited. */
    class SliderLabelComp;

    PluginLookAndFeel();
    ~PluginLookAndFeel() override;

    /** The font of the ruler, the keyboard and the readout, at a height of 14. */
    [[nodiscard]] const juce::Font& getScaleFont() const noexcept;

    //==============================================================================
    void drawButtonBackground (juce::Graphics& g,
                               juce::Button& button,
                               const juce::Colour& colour,
                               bool isOver,
                               bool isDown) override;
    void drawButtonText (juce::Graphics& g, juce::TextButton& button, bool isOver, bool isDown) override;
    void drawDrawableButton (juce::Graphics& g, juce::DrawableButton& button, bool isOver, bool isDown) override;
    juce::Font getTextButtonFont (juce::TextButton& button, int buttonHeight) override;
    int getTextButtonWidthToFitText (juce::TextButton& button, int buttonHeight) override;

    /** How opaque a button's image is drawn, 0 to 1. */
    [[nodiscard]] static float getImageOpacity (const juce::Button& button, bool isOver, bool isDown);

    //==============================================================================
    juce::Font getPopupMenuFont() override;
    int getPopupMenuBorderSize() override;
    void preparePopupMenuWindow (juce::Component& menu) override;
    void drawPopupMenuBackground (juce::Graphics& g, int width, int height) override;
    void drawPopupMenuBackgroundWithOptions (juce::Graphics& g,
                                             int width,
                                             int height,
                                             const juce::PopupMenu::Options& options) override;
    void drawPopupMenuItem (juce::Graphics& g,
                            const juce::Rectangle<int>& area,
                            bool isSeparator,
                            bool isActive,
                            bool isHighlighted,
                            bool isTicked,
                            bool hasSubMenu,
                            const juce::String& text,
                            const juce::String& shortcutKeyText,
                            const juce::Drawable* icon,
                            const juce::Colour* textColour) override;
    void drawPopupMenuSectionHeader (juce::Graphics& g,
                                     const juce::Rectangle<int>& area,
                                     const juce::String& sectionName) override;
    void drawPopupMenuUpDownArrow (juce::Graphics& g, int width, int height, bool isScrollUpArrow) override;

    /** The size of an entry without tick and arrow: a separator is 50 wide and a tenth of the standard height
        high; the width of a text is measured at 0.75 of the entry's height. */
    void getIdealPopupMenuItemSize (const juce::String& text,
                                    bool isSeparator,
                                    int standardHeight,
                                    int& idealWidth,
                                    int& idealHeight) override;

    /** The same with room for the tick before the text and the arrow after it. */
    void getIdealPopupMenuItemSizeWithOptions (const juce::String& text,
                                               bool isSeparator,
                                               int standardHeight,
                                               int& idealWidth,
                                               int& idealHeight,
                                               const juce::PopupMenu::Options& options) override;

    //==============================================================================
    void drawComboBox (juce::Graphics& g,
                       int width,
                       int height,
                       bool isButtonDown,
                       int buttonX,
                       int buttonY,
                       int buttonWidth,
                       int buttonHeight,
                       juce::ComboBox& box) override;
    juce::Font getComboBoxFont (juce::ComboBox& box) override;
    void positionComboBoxText (juce::ComboBox& box, juce::Label& label) override;
    juce::PopupMenu::Options getOptionsForComboBoxPopupMenu (juce::ComboBox& box, juce::Label& label) override;

    //==============================================================================
    void drawLinearSlider (juce::Graphics& g,
                           int x,
                           int y,
                           int width,
                           int height,
                           float position,
                           float minPosition,
                           float maxPosition,
                           juce::Slider::SliderStyle style,
                           juce::Slider& slider) override;
    juce::Slider::SliderLayout getSliderLayout (juce::Slider& slider) override;
    int getSliderThumbRadius (juce::Slider& slider) override;
    juce::Font getSliderPopupFont (juce::Slider& slider) override;
    juce::Label* createSliderTextBox (juce::Slider& slider) override;

    //==============================================================================
    juce::CaretComponent* createCaretComponent (juce::Component* keyFocusOwner) override;
    void drawLabel (juce::Graphics& g, juce::Label& label) override;
    juce::Font getLabelFont (juce::Label& label) override;
    void drawCornerResizer (juce::Graphics& g, int width, int height, bool isMouseOver, bool isDragging) override;

    /** This product has neither of these components, so nothing is drawn. */
    void drawPluginHeader (juce::Graphics&, pluginCore::PluginHeaderComponent&) override {}
    void drawPresetsBar (juce::Graphics&, pluginCore::PresetsBar&) override {}

private:
    struct Fonts;

    std::shared_ptr<const Fonts> fonts;
    const juce::Font controlFont;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginLookAndFeel)
};

} // namespace mk::orlo
