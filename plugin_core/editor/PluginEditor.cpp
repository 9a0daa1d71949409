// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginEditor.h"

#include "EditorSize.h"

#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/controls/PluginToggleControl.h"
#include "plugin_core/look/SharedLookAndFeel.h"
#include "plugin_core/processor/PluginProcessor.h"

namespace mk::pluginCore
{
namespace
{
constexpr float cornerPerHeight = 0.05f;

/** The component itself or its nearest parent, if one of them is a Control; else null. */
template <typename Control>
[[nodiscard]] const Control* findControl (const juce::Component& component)
{
    const auto* const control = dynamic_cast<const Control*> (&component);
    return control != nullptr ? control : component.findParentComponentOfClass<Control>();
}

/** Whether a mouse button is down over a menu inside the editor. */
[[nodiscard]] bool isMenuBeingClicked (const juce::Component& editor)
{
    if (! juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown())
        return false;

    const juce::Component* component = juce::Desktop::getInstance().getMainMouseSource().getComponentUnderMouse();

    while (component != nullptr && component != &editor && ! component->isCurrentlyModal (false))
        component = component->getParentComponent();

    return component != nullptr && component != &editor && editor.isParentOf (component);
}

/** The parameter of the control that the component is or is part of, within the editor; null if there is none.
    Controls other than sliders and toggles use the parameter's id as their component name. */
[[nodiscard]] const juce::AudioProcessorParameter* findParameter (const juce::AudioProcessorValueTreeState& state,
                                                                  const juce::Component& component,
                                                                  const juce::Component& editor)
{
    if (const auto* const slider = findControl<PluginSliderControl> (component))
        return state.getParameter (slider->getParamIDs()[0]);

    if (const auto* const toggle = findControl<PluginToggleControl> (component))
        return state.getParameter (toggle->getParamID());

    // Hosts pass the innermost component under the mouse, such as the label in a combo box.
    for (const auto* part = &component; part != nullptr && part != &editor; part = part->getParentComponent())
        if (const auto* const parameter = state.getParameter (part->getName()))
            return parameter;

    return nullptr;
}
} // namespace

/** Called at every resize, after resized(), so that products need not call the base class from there. */
class PluginEditor::PluginEditorListener final : public juce::ComponentListener
{
public:
    explicit PluginEditorListener (PluginEditor& editorToWatch) : editor (editorToWatch) {}

    void componentMovedOrResized (juce::Component&, bool, bool wasResized) override
    {
        if (wasResized)
            editor.updateSizeConstraints();
    }

private:
    PluginEditor& editor;
};

PluginEditor::PluginEditor (PluginProcessor& processorToUse, UpdateEnvironment updates)
    : ProcessorEditor (processorToUse),
      sharedLookAndFeel (SharedLookAndFeel<DefaultPluginLookAndFeel>::acquire()),
      pluginProcessor (processorToUse),
      moveDetector (std::make_unique<PluginMoveDetector> (*this)),
      updateEnvironment (std::move (updates)),
      updateChecker (std::make_unique<UpdateChecker> (processorToUse, updateEnvironment.makeTransport())),
      updateSchedule (UpdateSchedule::readFrom (globalSettings.getSettings()))
{
    moveDetector->addListener (this);
    pollerClient = std::make_unique<WindowPoller::Client> (*this, [this] (bool) { moveDetector->checkNow(); });

    setConstrainer (&constrainer);
    setResizable (true, false);
    cornerResizer = std::make_unique<juce::ResizableCornerComponent> (this, &constrainer);
    addAndMakeVisible (*cornerResizer);
    cornerResizer->setAlwaysOnTop (true);

    editorListener = std::make_unique<PluginEditorListener> (*this);
    addComponentListener (editorListener.get());
    addMouseListener (this, true);
    setUpUpdateNotice();
}

PluginEditor::~PluginEditor()
{
    removeMouseListener (this);
    removeComponentListener (editorListener.get());
    juce::PopupMenu::dismissAllActiveMenus();
    pollerClient = nullptr;
    moveDetector = nullptr;
    updateChecker->removeListener (this);
    updateChecker = nullptr;
    pluginProcessor.editorBeingDeleted (this);
}

//==============================================================================
void PluginEditor::open (int width, int height)
{
    setSize (width, height);

    const auto limits = getSizeLimits();
    const auto minWidth = juce::jmax (limits.minWidth, 0);
    const auto minHeight = juce::jmax (limits.minHeight, 0);
    constrainer.setSizeLimits (
        minWidth, minHeight, juce::jmax (minWidth, limits.maxWidth), juce::jmax (minHeight, limits.maxHeight));
    constrainer.setFixedAspectRatio (juce::jmax (getFixedAspectRatio(), 0.0));

    // Constrain the size just set in a second step, so that the constrainer keeps the width and corrects the height.
    constrainer.setBoundsForComponent (this, getBounds(), false, false, false, false);
    sizeRestored = true;
}

int PluginEditor::getCornerSize() const { return juce::roundToInt (float (getHeight()) * cornerPerHeight); }

const juce::Array<juce::Displays::Display>& PluginEditor::getDisplays() const
{
    return juce::Desktop::getInstance().getDisplays().displays;
}

const juce::Displays::Display* PluginEditor::findDisplay() const
{
    return editorSize::findDisplay (getDisplays(), localPointToGlobal (getLocalBounds().getCentre()));
}

void PluginEditor::updateSizeConstraints()
{
    if (auto* const style = dynamic_cast<LookAndFeel*> (&getLookAndFeel()))
        style->setEditorSize (getWidth(), getHeight());

    currentDisplay = findDisplay();

    // Without a display there is no area to fit the window into.
    if (currentDisplay != nullptr)
    {
        const auto usable = currentDisplay->userArea;
        const auto aspectRatio = juce::jmax (getFixedAspectRatio(), 0.0);
        const auto largest =
            editorSize::getLargest ({ constrainer.getMinimumWidth(), constrainer.getMinimumHeight() }, usable);
        constrainer.setMaximumWidth (largest.x);
        constrainer.setMaximumHeight (largest.y);
        constrainer.setFixedAspectRatio (aspectRatio);

        const juce::Point<int> present { getWidth(), getHeight() };

        if (const auto fitted = editorSize::fitIntoDisplay (present, usable, aspectRatio); fitted != present)
        {
            // This calls updateSizeConstraints() again, with the size that fits.
            setSize (fitted.x, fitted.y);
            return;
        }
    }

    juce::PopupMenu::dismissAllActiveMenus();

    const auto corner = getCornerSize();
    cornerResizer->setBounds (getWidth() - corner, getHeight() - corner, corner, corner);
    updateChangeLogComponent.setBounds (getLocalBounds());
    rememberSize();
}

void PluginEditor::rememberSize()
{
    auto& session = pluginProcessor.getSessionState();
    session.pluginEditorWidth.store (getWidth(), std::memory_order_relaxed);
    session.pluginEditorHeight.store (getHeight(), std::memory_order_relaxed);

    if (sizeRestored)
    {
        auto settings = globalSettings.getSettings();
        settings.setProperty (SettingsIds::defaultWidth, juce::String (getWidth()), nullptr);
        settings.setProperty (SettingsIds::defaultHeight, juce::String (getHeight()), nullptr);
    }
}

//==============================================================================
void PluginEditor::windowMoved (PluginMoveDetector&)
{
    juce::PopupMenu::dismissAllActiveMenus();

    if (const auto* const display = findDisplay(); display != nullptr && display != currentDisplay)
        updateSizeConstraints();
}

void PluginEditor::applicationActiveChanged (PluginMoveDetector&, bool wentInactive)
{
    if (wentInactive)
        juce::PopupMenu::dismissAllActiveMenus();
}

void PluginEditor::broughtToFront()
{
    // Some systems bring a window to the front at every click in it, even on a row of its own menu.
    if (! isMenuBeingClicked (*this))
        juce::PopupMenu::dismissAllActiveMenus();
}

int PluginEditor::getControlParameterIndex (juce::Component& component)
{
    const auto* const parameter = findParameter (pluginProcessor.getParameterState(), component, *this);
    return parameter != nullptr ? parameter->getParameterIndex() : -1;
}

} // namespace mk::pluginCore
