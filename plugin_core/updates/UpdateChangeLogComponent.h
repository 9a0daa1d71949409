// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/DisplayTextComponent.h"

#include <functional>

namespace mk::pluginCore
{

/** The notice of a new version, over the whole window: the change log and a button to the download page.
    Return opens the page and closes the notice, Escape closes it. [message thread] */
class UpdateChangeLogComponent final : public juce::Component
{
public:
    UpdateChangeLogComponent();

    /** Opens the page; by default in the browser. Not called if there is no page. */
    std::function<void (const juce::URL&)> onDownload;

    /** Called last by both buttons. */
    std::function<void()> onClose;

    void setDownloadUrl (juce::URL url) { downloadUrl = std::move (url); }
    void setText (const juce::String& changeLog) { textArea.setText (changeLog); }

    /** Announces the notice to screen readers. Call it once the notice is visible. It does not take the keyboard
        focus: the user may be typing elsewhere, and Return in the notice opens a browser. */
    void announce();

    /** The bounds of the panel's parts. */
    struct Layout
    {
        juce::Rectangle<int> panel, title, text, download, close;
    };

    /** The layout in a component of this size for buttons with these preferred widths. If the buttons do not both
        fit into the row, they share it in proportion. */
    [[nodiscard]] static Layout
        makeLayout (juce::Rectangle<int> bounds, juce::Rectangle<float> panelBounds, int downloadWidth, int closeWidth);

    /** The height of the button row, from which the buttons' preferred widths are computed. */
    [[nodiscard]] static int getButtonHeight (juce::Rectangle<int> panel) noexcept;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void parentHierarchyChanged() override;
    void colourChanged() override;
    bool keyPressed (const juce::KeyPress& key) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void download();
    void close();

    /** The panel's bounds, as fractions of the component's size. */
    const juce::Rectangle<float> panelBounds { 0.15f, 0.15f, 0.7f, 0.7f };
    juce::Label titleLabel;
    juce::TextButton downloadButton, closeButton;
    DisplayTextComponent textArea;
    juce::URL downloadUrl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UpdateChangeLogComponent)
};

} // namespace mk::pluginCore
