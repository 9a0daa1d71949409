// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StateTree.h"

namespace mk::pluginCore
{
namespace
{
/** The element as a tree. Text between the tags is dropped, since a tree cannot store it. */
[[nodiscard]] juce::ValueTree toTree (const juce::Identifier& type, const juce::XmlElement& xml)
{
    juce::ValueTree tree (type);

    for (int i = 0; i < xml.getNumAttributes(); ++i)
        tree.setProperty (xml.getAttributeName (i), xml.getAttributeValue (i), nullptr);

    for (const auto* child : xml.getChildIterator())
        if (! child->isTextElement())
            tree.appendChild (toTree (child->getTagName(), *child), nullptr);

    return tree;
}
} // namespace

StateTree::StateTree (const juce::Identifier& type) : tree (type), newest (type) { tree.addListener (this); }

StateTree::~StateTree()
{
    cancelPendingUpdate();
    tree.removeListener (this);
}

std::unique_ptr<juce::XmlElement> StateTree::createXml() const
{
    const juce::ScopedLock scopedLock (lock);
    return newest.createXml();
}

void StateTree::replaceContent (const juce::XmlElement& xml)
{
    auto replacement = toTree (tree.getType(), xml);

    {
        const juce::ScopedLock scopedLock (lock);
        std::swap (newest, replacement);
        replacementWaiting = true;
    }

    if (juce::MessageManager::existsAndIsCurrentThread())
        handleAsyncUpdate();
    else
        triggerAsyncUpdate();
}

void StateTree::removeProperties (const juce::StringArray& names)
{
    const auto xml = createXml();
    const auto numBefore = xml->getNumAttributes();

    for (const auto& name : names)
        xml->removeAttribute (name);

    if (xml->getNumAttributes() < numBefore)
        replaceContent (*xml);
}

void StateTree::handleAsyncUpdate()
{
    juce::ValueTree replacement;

    {
        const juce::ScopedLock scopedLock (lock);

        if (! std::exchange (replacementWaiting, false))
            return;

        replacement = newest.createCopy();
    }

    {
        const juce::ScopedValueSetter<bool> setter (following, true);
        tree.copyPropertiesAndChildrenFrom (replacement, nullptr);
    }

    // Listeners may have changed the tree while it was replaced.
    storeTree();

    if (onReplaced != nullptr)
        onReplaced();
}

void StateTree::storeTree()
{
    if (following)
        return;

    auto copy = tree.createCopy();
    const juce::ScopedLock scopedLock (lock);

    if (! replacementWaiting)
        std::swap (newest, copy);
}

} // namespace mk::pluginCore
