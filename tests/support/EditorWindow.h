// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MessageLoop.h"
#include "Screen.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

#include <memory>

namespace mk::orlo::test
{

/** The product's editor at the screen's upper left, in a frameless window or in a host's window, operated with
    the real mouse and the real keyboard. [message thread] */
class EditorWindow
{
public:
    static constexpr int leftButton = 1, middleButton = 2, rightButton = 3;

    /** Opens the editor as a host does, and waits until it is visible. */
    explicit EditorWindow (AudioPluginAudioProcessor& processor)
        : editor (dynamic_cast<AudioPluginAudioProcessorEditor*> (processor.createEditorIfNeeded()))
    {
        editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
        editor->setTopLeftPosition (0, 0);
        editor->setVisible (true);
        editor->toFront (true);
        isOpen = pumpUntil ([this] { return editor->isShowing() && editor->getPeer()->isFocused(); });
    }

    /** Opens inside a host's window, see Screen::createHostWindow(), and leaves the keyboard focus as it is. */
    EditorWindow (AudioPluginAudioProcessor& processor, void* hostWindow)
        : editor (dynamic_cast<AudioPluginAudioProcessorEditor*> (processor.createEditorIfNeeded()))
    {
        editor->addToDesktop (0, hostWindow);
        editor->setVisible (true);
        isOpen = pumpUntil ([this] { return editor->isShowing(); });
    }

    ~EditorWindow()
    {
        releaseAll();
        editor = nullptr;
        pumpPending();
    }

    [[nodiscard]] MainComponent& getMain() { return editor->getMainComponent(); }
    [[nodiscard]] SpectrogramContainer& getContainer() { return getMain().getSpectrogramContainer(); }
    [[nodiscard]] SpectrogramComponent& getPicture() { return getContainer().getSpectrogram(); }

    /** Moves the mouse to these coordinates within the component. False if it does not arrive there. */
    [[nodiscard]] bool moveTo (juce::Component& component, juce::Point<int> position)
    {
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
        const auto target = component.localPointToGlobal (position);

        // The mouse may have been here already when the window opened; moving it here again would then cause no
        // event. So it comes from beside, and more than once.
        return pumpUntil (
            [&, tries = 0]() mutable
            {
                if (tries % 10 == 0)
                    Screen::getInstance().moveMouseTo (target + juce::Point { tries % 20 == 0 ? 1 : 0, 0 });

                ++tries;

                auto* const under = mouse.getComponentUnderMouse();
                return under != nullptr && (under == &component || component.isParentOf (under))
                       && mouse.getScreenPosition().roundToInt() == target;
            });
    }

    [[nodiscard]] bool moveToCentre (juce::Component& component)
    {
        return moveTo (component, component.getLocalBounds().getCentre());
    }

    /** Takes the mouse out of the window. */
    [[nodiscard]] bool moveAway()
    {
        Screen::getInstance().moveMouseTo (editor->getScreenBounds().getBottomRight() + juce::Point { 40, 40 });
        return pumpUntil ([this] { return ! editor->isMouseOver (true); });
    }

    void press (int button = leftButton)
    {
        Screen::getInstance().setButton (button, true);
        buttonDown = button;
    }

    void release()
    {
        if (buttonDown != 0)
            Screen::getInstance().setButton (std::exchange (buttonDown, 0), false);
    }

    /** Moves to the component's middle, presses and lets go. False if the mouse does not get there. */
    [[nodiscard]] bool click (juce::Component& component, int button = leftButton)
    {
        if (! moveToCentre (component))
            return false;

        press (button);
        release();
        return true;
    }

    void holdKey (unsigned long symbol)
    {
        Screen::getInstance().setKey (symbol, true);
        keyDown = symbol;
    }

    void releaseKey()
    {
        if (keyDown != 0)
            Screen::getInstance().setKey (std::exchange (keyDown, 0), false);
    }

    void typeKey (unsigned long symbol)
    {
        Screen::getInstance().setKey (symbol, true);
        Screen::getInstance().setKey (symbol, false);
    }

    void releaseAll()
    {
        release();
        releaseKey();
    }

    std::unique_ptr<AudioPluginAudioProcessorEditor> editor;
    bool isOpen = false;

private:
    int buttonDown = 0;
    unsigned long keyDown = 0;
};

/** The first window of the open menu; null if no menu is open. */
[[nodiscard]] inline juce::Component* findOpenMenu()
{
    for (int i = 0; i < juce::ModalComponentManager::getInstance()->getNumModalComponents(); ++i)
        if (auto* const component = juce::ModalComponentManager::getInstance()->getModalComponent (i))
            if (dynamic_cast<juce::FileBrowserComponent*> (component) == nullptr)
                return component;

    return nullptr;
}

} // namespace mk::orlo::test
