// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MenuKeyScroller.h"

namespace mk::pluginCore
{

MenuKeyScroller::~MenuKeyScroller() { follow (nullptr); }

void MenuKeyScroller::followOpenMenu()
{
    // An open menu is modal.
    follow (juce::ModalComponentManager::getInstance()->getModalComponent (0));
}

void MenuKeyScroller::follow (juce::Component* newMenu)
{
    cancelPendingUpdate();

    if (menu != nullptr)
        menu->removeKeyListener (this);

    menu = newMenu;

    if (menu != nullptr)
        menu->addKeyListener (this);
}

bool MenuKeyScroller::keyPressed (const juce::KeyPress&, juce::Component*)
{
    // The menu handles the key only after this listener.
    triggerAsyncUpdate();
    return false;
}

void MenuKeyScroller::handleAsyncUpdate()
{
    if (menu == nullptr)
        return;

    for (auto* row : menu->getChildren())
    {
        const auto* handler = row->getAccessibilityHandler();

        // The highlighted entry has the accessibility focus, and its focus action scrolls to it.
        if (handler != nullptr && handler->hasFocus (false))
        {
            handler->getActions().invoke (juce::AccessibilityActionType::focus);
            return;
        }
    }
}

} // namespace mk::pluginCore
