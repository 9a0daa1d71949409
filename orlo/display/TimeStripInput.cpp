// SPDX-License-Identifier: AGPL-3.0-or-later
// What the strip does with mouse, keys and screen readers.
#include "MenuKey.h"
#include "TimeStrip.h"

#include "plugin_core/controls/ComponentIgnoringRightButton.h"

namespace mk::orlo
{

StripWindow TimeStrip::getWindow() const noexcept
{
    return { explorer.getTimeView(), juce::jmax (1, overviewArea.getWidth()) };
}

void TimeStrip::mouseMove (const juce::MouseEvent& event)
{
    const auto part =
        event.y >= overviewArea.getY() ? getWindow().findPart (double (event.position.x)) : StripWindow::Part::inside;
    const auto isEdge = part == StripWindow::Part::leftEdge || part == StripWindow::Part::rightEdge;
    setMouseCursor (isEdge                               ? juce::MouseCursor::LeftRightResizeCursor
                    : part == StripWindow::Part::outside ? juce::MouseCursor::NormalCursor
                                                         : juce::MouseCursor::DraggingHandCursor);
}

void TimeStrip::mouseDown (const juce::MouseEvent& event)
{
    if (pluginCore::isMenuClick (event.mods))
    {
        showMenu (juce::PopupMenu::Options {}.withMousePosition());
        return;
    }

    dragged = StripWindow::Part::outside;

    if (! pluginCore::isEditingClick (event.mods) || ! explorer.isExploring())
        return;

    if (event.y >= overviewArea.getY())
    {
        const auto x = double (event.position.x);
        dragged = getWindow().findPart (x);

        if (dragged == StripWindow::Part::outside)
        {
            explorer.setTimeView (getWindow().centreAt (x));
            dragged = StripWindow::Part::inside;
        }
    }

    dragStart = explorer.getTimeView();
    dragX = event.position.x;
}

void TimeStrip::mouseDrag (const juce::MouseEvent& event)
{
    if (! explorer.isExploring() || ! pluginCore::isEditingClick (event.mods))
        return;

    const auto distance = double (event.position.x - dragX);

    if (dragged != StripWindow::Part::outside)
    {
        explorer.setTimeView (
            StripWindow (dragStart, juce::jmax (1, overviewArea.getWidth())).drag (dragged, distance));
        return;
    }

    // The ruler is dragged with the picture above it.
    auto view = dragStart;
    view.moveBy (-distance * view.getLength() / double (juce::jmax (1, getWidth())));
    explorer.setTimeView (view);
}

void TimeStrip::mouseUp (const juce::MouseEvent&) { dragged = StripWindow::Part::outside; }

//==============================================================================
void TimeStrip::showMenu (const juce::PopupMenu::Options& options)
{
    juce::PopupMenu menu;
    menu.addItem (1, juce::translate ("Seconds"), true, unit == Unit::seconds);
    menu.addItem (2, juce::translate ("Bars and beats"), hasBars(), unit == Unit::bars);

    menu.showMenuAsync (options.withParentComponent (findParentComponentOfClass<juce::AudioProcessorEditor>()),
                        [self = juce::Component::SafePointer (this)] (int result)
                        {
                            if (self != nullptr && result > 0)
                                self->setUnit (result == 1 ? Unit::seconds : Unit::bars);
                        });
}

bool TimeStrip::keyPressed (const juce::KeyPress& key)
{
    if (menuKey::isShiftF10 (key))
    {
        showMenu (juce::PopupMenu::Options {}.withTargetComponent (this));
        return true;
    }

    return onKeyPressed != nullptr && onKeyPressed (key);
}

bool TimeStrip::keyStateChanged (bool isKeyDown)
{
    if (! isKeyDown || ! menuKey::isMenuKeyDown())
        return false;

    showMenu (juce::PopupMenu::Options {}.withTargetComponent (this));
    return true;
}

std::unique_ptr<juce::AccessibilityHandler> TimeStrip::createAccessibilityHandler()
{
    /** The range's start, in seconds before the freeze. */
    class Value final : public juce::AccessibilityValueInterface
    {
    public:
        explicit Value (TimeStrip& stripToUse) : strip (stripToUse) {}

        [[nodiscard]] bool isReadOnly() const override { return ! strip.explorer.isExploring(); }
        [[nodiscard]] juce::String getCurrentValueAsString() const override { return strip.describeRange(); }

        [[nodiscard]] double getCurrentValue() const override
        {
            const auto& view = strip.explorer.getTimeView();
            return view.getSecondsAt (view.getStart());
        }

        void setValueAsString (const juce::String& text) override { setValue (text.getDoubleValue()); }

        void setValue (double seconds) override
        {
            auto view = strip.explorer.getTimeView();
            view.setRange (view.getSoundEnd() + seconds * view.getSampleRate(), view.getLength());
            strip.explorer.setTimeView (view);
        }

        [[nodiscard]] AccessibleValueRange getRange() const override
        {
            const auto& view = strip.explorer.getTimeView();
            const auto first = view.getSecondsAt (view.getSoundStart());
            return { { first, juce::jmax (first, view.getSecondsAt (view.getSoundEnd() - view.getLength())) },
                     view.getLength() / view.getSampleRate() * 0.1 };
        }

    private:
        TimeStrip& strip;
    };

    return std::make_unique<juce::AccessibilityHandler> (
        *this,
        juce::AccessibilityRole::slider,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::showMenu,
                                                [this]
                                                { showMenu (juce::PopupMenu::Options {}.withTargetComponent (this)); }),
        juce::AccessibilityHandler::Interfaces { std::make_unique<Value> (*this) });
}

} // namespace mk::orlo
