// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Window.h"

namespace juce::detail
{
// JUCE's internal step of the message loop, which sleeps until there is a message.
bool dispatchNextMessageOnSystemQueue (bool returnIfNoPendingMessages);
} // namespace juce::detail

namespace mk::orlo::bench
{
namespace
{
// The loop sleeps until there is a message, so a timer wakes it to check the time.
constexpr int wakeEveryMs = 50;
} // namespace

void runLoop (double seconds, const std::function<bool()>& isDone)
{
    const auto end = juce::Time::getMillisecondCounterHiRes() + seconds * 1000.0;
    juce::TimedCallback waker { [] {} };
    waker.startTimer (wakeEveryMs);

    while (! isDone() && juce::Time::getMillisecondCounterHiRes() < end)
        juce::detail::dispatchNextMessageOnSystemQueue (false);
}

std::unique_ptr<AudioPluginAudioProcessorEditor> openEditor (AudioPluginAudioProcessor& processor)
{
    std::unique_ptr<AudioPluginAudioProcessorEditor> editor (
        dynamic_cast<AudioPluginAudioProcessorEditor*> (processor.createEditorIfNeeded()));
    editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
    editor->setVisible (true);
    return editor;
}

} // namespace mk::orlo::bench
