// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <array>
#include <memory>

namespace mk::orlo::bench
{

/** A processor with the settings that windows are measured with, and room for a window of 1818 by 1000. */
[[nodiscard]] std::unique_ptr<AudioPluginAudioProcessor> makeProcessor();

/** Measures the processor time of the whole process in the states of the window, with the same processors for all. Each
    function takes two seconds and returns processor seconds per second. [message thread] */
class WindowStates
{
public:
    WindowStates();

    [[nodiscard]] static constexpr int getNumEditors() { return int (std::tuple_size_v<decltype (processors)>); }

    /** With one editor, in the mode with that name. */
    [[nodiscard]] double measureRunning (const char* drawMode);
    [[nodiscard]] double measureFrozen();
    [[nodiscard]] double measureClosed();

    /** With an editor of each processor. */
    [[nodiscard]] double measureAll();

    /** A window that paints a picture of the view's size in that format, at most once in the given time. */
    [[nodiscard]] double measurePicture (juce::Image::PixelFormat format, double shortestSeconds) const;

    /** A window that does nothing while the audio plays. */
    [[nodiscard]] double measureIdleWindow();

    /** No window, and a processor that does nothing. */
    [[nodiscard]] static double measurePlainProcessor();

private:
    [[nodiscard]] AudioPluginAudioProcessor& first() { return *processors[0]; }

    std::array<std::unique_ptr<AudioPluginAudioProcessor>, 8> processors;
    juce::Rectangle<int> view;
};

} // namespace mk::orlo::bench
