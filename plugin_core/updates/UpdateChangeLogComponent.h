// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/controls/DisplayTextComponent.h"

#include <functional>

namespace mk::pluginCore
{

/** The notice that there is a new version, over the whole window: what is new in it, and the way to it.
    Return goes to the page and closes, Escape closes. [message thread] */
class UpdateChangeLogComponent final : public juce::Component
{
public:
    UpdateChangeLogComponent();

    /** Opens the page; by default in the browser. Not called if there is no page. */
    std::function<void (const juce::URL&)> onDownload;

    /** Both buttons end in it. */
    std::function<void()> onClose;

    void setDownloadUrl (juce::URL url) { downloadUrl = std::move (url); }
    void setText (const juce::String& changeLog) { textArea.setText (changeLog); }

    /** Tells screen readers of the notice. Called when it has become visible. It does not take the keyboard:
        what the user is typing is not meant for it, and its Return opens a browser. */
    void announce();

    /** Where the parts of the panel lie. */
    struct Layout
    {
        juce::Rectangle<int> panel, title, text, download, close;
    };

    /** The layout in a component of this size for buttons that want these widths. Buttons that do not both fit
        into the row share it in proportion. */
    [[nodiscard]] static Layout
        makeLayout (juce::Rectangle<int> bounds, juce::Rectangle<float> panelBounds, int downloadWidth, int closeWidth);

    /** How high the row of buttons is, which their wanted widths depend on. */
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

    /** The panel, as shares of the component. */
    const juce::Rectangle<float> panelBounds { 0.15f, 0.15f, 0.7f, 0.7f };
    juce::Label titleLabel;
    juce::TextButton downloadButton, closeButton;
    DisplayTextComponent textArea;
    juce::URL downloadUrl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (UpdateChangeLogComponent)
};

} // namespace mk::pluginCore
