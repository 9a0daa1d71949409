// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SessionState.h"

#include "StateBlob.h"

#include "plugin_core/text/NumberText.h"

namespace mk::pluginCore
{
namespace
{
namespace attribute
{
constexpr auto editorWidth = "pluginEditorWidth";
constexpr auto editorHeight = "pluginEditorHeight";
constexpr auto lockedParams = "lockedParams";
} // namespace attribute

constexpr auto lockedParamsSeparator = ";";

void addIfAboveZero (juce::XmlElement& xml, const char* name, int value)
{
    if (value > 0)
        xml.setAttribute (name, value);
}

[[nodiscard]] int readSize (const juce::XmlElement& xml, const char* name)
{
    return parseInteger (xml.getStringAttribute (name)).value_or (-1);
}

bool replaceFromChild (StateTree& tree, const juce::XmlElement& parent)
{
    const auto* const child = parent.getChildByName (tree.getTree().getType());

    if (child != nullptr)
        tree.replaceContent (*child);

    return child != nullptr;
}
} // namespace

SessionState::SessionState (juce::AudioProcessorValueTreeState& parameterState, juce::UndoManager& undoManagerToUse)
    : undoManager (undoManagerToUse), parameters (parameterState)
{
}

SessionState::~SessionState() { cancelPendingUpdate(); }

//==============================================================================
void SessionState::writeTo (juce::XmlElement& xml, bool forSession, std::unique_ptr<juce::XmlElement> lastPreset) const
{
    if (forSession)
    {
        addIfAboveZero (xml, attribute::editorWidth, pluginEditorWidth.load (std::memory_order_relaxed));
        addIfAboveZero (xml, attribute::editorHeight, pluginEditorHeight.load (std::memory_order_relaxed));
        xml.setAttribute (attribute::lockedParams, getLockedParams().joinIntoString (lockedParamsSeparator));
    }

    xml.addChildElement (parameters.createXml().release());

    if (forSession)
        xml.addChildElement (settings.createXml().release());

    xml.addChildElement (lastPreset.release());

    if (auto dataXml = data.createXml(); dataXml->getNumAttributes() > 0 || dataXml->getNumChildElements() > 0)
        xml.addChildElement (dataXml.release());
}

void SessionState::readFrom (const juce::XmlElement& xml, bool forSession)
{
    if (forSession)
    {
        pluginEditorWidth.store (readSize (xml, attribute::editorWidth), std::memory_order_relaxed);
        pluginEditorHeight.store (readSize (xml, attribute::editorHeight), std::memory_order_relaxed);
    }

    if (const auto* const child = xml.getChildByName (parameters.getTag()))
    {
        parameters.apply (*child, getLockedParams());
        followOnMessageThread();
    }

    if (! replaceFromChild (data, xml))
        data.removeProperties (presetProperties);

    if (forSession)
        replaceFromChild (settings, xml);
}

//==============================================================================
void SessionState::forgetUndoHistory()
{
    undoHistoryIsOld.store (true, std::memory_order_release);
    followOnMessageThread();
}

void SessionState::followOnMessageThread()
{
    if (juce::MessageManager::existsAndIsCurrentThread())
        handleAsyncUpdate();
    else
        triggerAsyncUpdate();
}

void SessionState::handleAsyncUpdate()
{
    // Otherwise the parameter state's timer would record the new values in the undo history, each as a change
    // of its own.
    parameters.updateTree();

    if (undoManager.isPerformingUndoRedo())
    {
        // The history cannot be cleared during an undo, so it is cleared later.
        if (undoHistoryIsOld.load (std::memory_order_acquire))
            triggerAsyncUpdate();

        return;
    }

    if (undoHistoryIsOld.exchange (false, std::memory_order_acq_rel))
        undoManager.clearUndoHistory();
}

//==============================================================================
juce::StringArray SessionState::getLockedParams() const
{
    const juce::ScopedLock scopedLock (lock);
    return lockedParams;
}

void SessionState::setLockedParams (const juce::StringArray& ids)
{
    auto copy = ids;
    const juce::ScopedLock scopedLock (lock);
    lockedParams.swapWith (copy);
}

void SessionState::readLockedParams (const juce::XmlElement& xml)
{
    const auto& ids = xml.getStringAttribute (attribute::lockedParams);
    setLockedParams (juce::StringArray::fromTokens (ids, lockedParamsSeparator, {}));
}

juce::MemoryBlock SessionState::getSessionStateCopy() const
{
    const juce::ScopedLock scopedLock (lock);
    return sessionCopy;
}

juce::MemoryBlock SessionState::getPresetStateCopy() const
{
    const juce::ScopedLock scopedLock (lock);
    return presetCopy;
}

void SessionState::setStateCopies (const juce::XmlElement* session, const juce::XmlElement& preset)
{
    auto presetBlob = writeStateBlob (preset);
    auto sessionBlob = session != nullptr ? writeStateBlob (*session) : juce::MemoryBlock();
    const juce::ScopedLock scopedLock (lock);
    presetCopy.swapWith (presetBlob);

    if (session != nullptr)
        sessionCopy.swapWith (sessionBlob);
}

} // namespace mk::pluginCore
