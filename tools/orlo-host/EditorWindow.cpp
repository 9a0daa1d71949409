// SPDX-License-Identifier: AGPL-3.0-or-later
#include "EditorWindow.h"

#include "HostError.h"

namespace mk::orlo::host
{

EditorWindow::EditorWindow (juce::AudioPluginInstance& plugin)
    : juce::DocumentWindow (plugin.getName(), juce::Colours::black, minimiseButton | closeButton, false)
{
    if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
        throw HostError ("there is no display to open the window on (--no-window does without)");

    std::unique_ptr<juce::AudioProcessorEditor> editor (plugin.createEditorIfNeeded());

    if (editor == nullptr)
        throw HostError (plugin.getName() + " has no editor");

    setUsingNativeTitleBar (true);
    const auto editorIsResizable = editor->isResizable();
    setContentOwned (editor.release(), true);
    setResizable (editorIsResizable, false);
    centreWithSize (getWidth(), getHeight());
    addToDesktop();
    setVisible (true);
    toFront (true);
}

EditorWindow::~EditorWindow() { clearContentComponent(); }

void EditorWindow::setEditorSize (juce::Rectangle<int> size)
{
    getEditor().setSize (size.getWidth(), size.getHeight());
    centreWithSize (getWidth(), getHeight());
}

void EditorWindow::closeButtonPressed()
{
    if (onClose != nullptr)
        onClose();
}

} // namespace mk::orlo::host
