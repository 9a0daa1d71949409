// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/exports/AxesLayout.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <optional>

namespace mk::orlo
{

/** Asks for size, title, axes and paper of a picture. Return accepts, Escape cancels; Tab goes through all of it.
    [message thread] */
class ExportDialog final : public juce::Component
{
public:
    ExportDialog();

    /** Gets the settings when the user accepts them. The dialog is hidden then. */
    std::function<void (const ExportSettings&)> onAccepted;

    /** Shows the dialog in the middle of the parent, with the settings of the last time, and the keyboard focus on it. */
    void open();

    /** The size that the dialog shows until the user has typed another one. */
    void setDefaultSize (int width, int height);

    /** What is typed and chosen, or nothing if a number is not possible. */
    [[nodiscard]] std::optional<ExportSettings> getSettings() const;

    [[nodiscard]] juce::TextEditor& getWidthField() noexcept { return widthField; }
    [[nodiscard]] juce::TextEditor& getHeightField() noexcept { return heightField; }
    [[nodiscard]] juce::TextEditor& getTitleField() noexcept { return titleField; }
    [[nodiscard]] juce::Button& getAxesButton() noexcept { return axesButton; }
    [[nodiscard]] juce::Button& getLightButton() noexcept { return lightButton; }
    [[nodiscard]] juce::Button& getDarkButton() noexcept { return darkButton; }
    [[nodiscard]] juce::Button& getAcceptButton() noexcept { return acceptButton; }
    [[nodiscard]] juce::Button& getCancelButton() noexcept { return cancelButton; }

    void paint (juce::Graphics&) override;
    void resized() override;
    bool keyPressed (const juce::KeyPress& key) override;
    void lookAndFeelChanged() override;

private:
    void setUpFields();
    void setUpButtons();
    void accept();
    void close();
    void updateChoices();

    juce::Label heading, sizeLabel, timesLabel, titleLabel, axesLabel, paperLabel;
    juce::TextEditor widthField, heightField, titleField;
    juce::TextButton axesButton, lightButton, darkButton, acceptButton, cancelButton;
    bool isSizeChosen = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ExportDialog)
};

} // namespace mk::orlo
