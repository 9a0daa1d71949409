// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the menu of the picture by mouse and by keyboard; needs a display.
#include "EditorInWindow.h"
#include "tests/support/FindComponents.h"

namespace mk::orlo::test
{
namespace
{

class EditorMenuTest : public EditorInWindowTest
{
protected:
    /** Opens the menu of a part of the picture, and waits until it shows. */
    [[nodiscard]] bool openMenuOn (juce::Component& component)
    {
        return window->click (component, EditorWindow::rightButton) && waitForMenu();
    }

    /** Clicks on a row until the menu closes. A release soon after the menu has opened is taken for the end of
        the click that opened it, so one click may not be enough. */
    [[nodiscard]] bool clickRow (juce::Component& row)
    {
        if (! window->moveToCentre (row) || ! pumpUntil ([&row] { return isHighlighted (row); }))
            return false;

        return pumpUntil (
            [this]
            {
                if (findOpenMenu() == nullptr)
                    return true;

                const auto isLeftDown = [] { return juce::ModifierKeys::currentModifiers.isLeftButtonDown(); };
                window->press();
                const auto wentDown = pumpUntil (isLeftDown);
                window->release();
                const auto wentUp = pumpUntil ([&] { return ! isLeftDown(); });
                pumpPending();
                return wentDown && wentUp && findOpenMenu() == nullptr;
            });
    }

    /** The values of all parameters, with the given one replaced. */
    [[nodiscard]] std::map<juce::String, float> getParametersWith (const char* id, float value)
    {
        auto values = getParameters();
        values[processor.getParameterState().getParameter (id)->getName (100)] = value;
        return values;
    }
};

TEST_F (EditorMenuTest, ARightClickAnywhereOnThePictureOpensItsMenu)
{
    auto& container = window->getContainer();

    for (auto* const part : { static_cast<juce::Component*> (&container.getSpectrogram()),
                              static_cast<juce::Component*> (&container.getRuler()),
                              static_cast<juce::Component*> (&container.getKeyboard()) })
    {
        ASSERT_TRUE (openMenuOn (*part)) << part->getTitle();
        EXPECT_EQ (container.getContextMenu().getNumItems(), 14);
        EXPECT_FALSE (container.getReadout().isVisible());
        EXPECT_FALSE (container.getSpectrogram().isCrosshairVisible());
        window->typeKey (Screen::escapeKey);
        ASSERT_TRUE (waitUntilNoMenu());
    }
}


TEST_F (EditorMenuTest, ACtrlClickOpensItAsARightClickDoes)
{
    auto& container = window->getContainer();
    auto& picture = container.getSpectrogram();

    ASSERT_TRUE (window->moveToCentre (picture));
    ASSERT_TRUE (holdModifier (Screen::controlKey, juce::ModifierKeys::ctrlModifier));
    window->press();
    EXPECT_TRUE (waitForMenu());
    EXPECT_FALSE (picture.isCrosshairVisible());
    EXPECT_FALSE (container.getReadout().isVisible());
    EXPECT_EQ (container.getKeyboard().getHighlightedNote(), KeyboardScaleComponent::noNote);

    window->releaseAll();
    window->typeKey (Screen::escapeKey);
    EXPECT_TRUE (waitUntilNoMenu());
}

//==============================================================================
TEST_F (EditorMenuTest, AClickOnAnEntryChangesOnlyItsParameter)
{
    struct Entry
    {
        const char* text;
        const char* id;
        float value;
    };

    for (const auto& entry : { Entry { "Hide Ruler", Params::id::ruler, 0.0f },
                               { "Hide Piano", Params::id::keyboard, 0.0f },
                               { "Show Ruler", Params::id::ruler, 1.0f },
                               { "Freeze", Params::id::freeze, 1.0f } })
    {
        ASSERT_TRUE (openMenuOn (window->getPicture()));
        auto* const row = findMenuRow (juce::translate (entry.text));
        ASSERT_NE (row, nullptr) << entry.text;

        const auto expected = getParametersWith (entry.id, entry.value);
        ASSERT_TRUE (clickRow (*row)) << entry.text;
        ASSERT_TRUE (waitUntilNoMenu()) << entry.text;
        EXPECT_TRUE (pumpUntil ([&] { return get (entry.id) == entry.value; })) << entry.text;
        EXPECT_EQ (getParameters(), expected) << entry.text;
        EXPECT_FALSE (processor.getUIView().cleanViewMode.get()) << entry.text;
    }

    EXPECT_TRUE (window->getContainer().getRuler().isVisible());
    EXPECT_FALSE (window->getContainer().getKeyboard().isVisible());
}

TEST_F (EditorMenuTest, CanBeUsedByKeys)
{
    ASSERT_TRUE (openMenuOn (window->getPicture()));
    auto* const row = findMenuRow (juce::translate ("Hide Piano"));
    ASSERT_NE (row, nullptr);
    const auto expected = getParametersWith (Params::id::keyboard, 0.0f);

    ASSERT_TRUE (keyTo (*row));
    window->typeKey (Screen::returnKey);
    EXPECT_TRUE (waitUntilNoMenu());
    EXPECT_TRUE (pumpUntil ([&] { return get (Params::id::keyboard) < 0.5f; }));
    EXPECT_EQ (getParameters(), expected);
    EXPECT_FALSE (processor.getUIView().cleanViewMode.get());
}

} // namespace
} // namespace mk::orlo::test
