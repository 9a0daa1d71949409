// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/PluginProcessor.h"

#include <functional>

namespace mk::orlo
{

/** The page about the product, over the whole window. The owner shows it; any click hides it, and a click on
    the address also opens the vendor's home page. Return opens the home page, Escape closes.
    [message thread] */
class AboutComponent final : public juce::Component
{
public:
    explicit AboutComponent (const pluginCore::PluginProcessor& processor);

    /** Opens a page; by default in the browser. */
    std::function<void (const juce::URL&)> openInBrowser;

    /** The bounds of the texts. */
    struct Layout
    {
        juce::Rectangle<int> title, subtitle, version, credits, website, footer;
    };

    /** The layout for an address that is this wide. */
    [[nodiscard]] static Layout makeLayout (juce::Rectangle<int> bounds, int websiteWidth);

    void paint (juce::Graphics& g) override;
    void resized() override;
    void mouseDown (const juce::MouseEvent& event) override;
    bool keyPressed (const juce::KeyPress& key) override;
    void visibilityChanged() override;
    void lookAndFeelChanged() override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    /** A label that is a link for screen readers. */
    class WebsiteLabel final : public juce::Label
    {
    public:
        std::function<void()> onPress;
        std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;
    };

    void setUp (juce::Label& label, const juce::String& text, int category, double fontScale);
    void openHomePage();
    void applyColours();

    juce::Label titleLabel, subtitleLabel, versionLabel, creditsLabel;
    WebsiteLabel websiteLabel;
    juce::Label footerLabel;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AboutComponent)
};

} // namespace mk::orlo
