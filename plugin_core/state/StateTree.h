// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_events/juce_events.h>

#include <functional>
#include <memory>

namespace mk::pluginCore
{

/** A tree that components listen to on the message thread, and that a host may read and replace on any
    thread. A private copy under a lock always has the newest content; the tree itself is accessed only on the
    message thread and is updated asynchronously after a replacement on another thread. No listener or callback
    is called under the lock, and the audio thread never takes it. */
class StateTree final : private juce::ValueTree::Listener, private juce::AsyncUpdater
{
public:
    /** [message thread] An empty tree. */
    explicit StateTree (const juce::Identifier& type);
    ~StateTree() override;

    /** [message thread] The tree to listen to and to change. It is the same tree for this object's lifetime. */
    [[nodiscard]] juce::ValueTree getTree() const { return tree; }

    /** Any thread. The newest content, including a replacement that the tree does not show yet. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createXml() const;

    /** Any thread. Replaces the whole content by the attributes and children of the element; its tag is
        ignored. On the message thread the tree is updated before the call returns. On other threads it is
        updated later, and changes made to the tree until then are lost. */
    void replaceContent (const juce::XmlElement& xml);

    /** Any thread. Replaces the content by one without these properties, if it has any of them. */
    void removeProperties (const juce::StringArray& names);

    /** [message thread] Called after the tree has been updated to a replacement. */
    std::function<void()> onReplaced;

private:
    void handleAsyncUpdate() override;
    void valueTreePropertyChanged (juce::ValueTree&, const juce::Identifier&) override { storeTree(); }
    void valueTreeChildAdded (juce::ValueTree&, juce::ValueTree&) override { storeTree(); }
    void valueTreeChildRemoved (juce::ValueTree&, juce::ValueTree&, int) override { storeTree(); }
    void valueTreeChildOrderChanged (juce::ValueTree&, int, int) override { storeTree(); }
    void storeTree();

    juce::ValueTree tree;
    bool following = false; // message thread only: the tree is being replaced

    juce::CriticalSection lock;
    juce::ValueTree newest;          // guarded by the lock; not shared
    bool replacementWaiting = false; // guarded by the lock: newest is newer than the tree

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (StateTree)
};

} // namespace mk::pluginCore
