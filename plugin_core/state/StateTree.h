// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_events/juce_events.h>

#include <functional>
#include <memory>

namespace mk::pluginCore
{

/** A tree that components listen to on the message thread, and that a host may read and replace on any
    thread. A private copy under a lock always holds the newest content; the tree itself is touched by the
    message thread alone and follows a replacement from elsewhere asynchronously. The lock is never held
    while anybody is called, and the audio thread never takes it. */
class StateTree final : private juce::ValueTree::Listener, private juce::AsyncUpdater
{
public:
    /** [message thread] An empty tree. */
    explicit StateTree (const juce::Identifier& type);
    ~StateTree() override;

    /** [message thread] The tree to listen to and to change. It stays the same tree for life. */
    [[nodiscard]] juce::ValueTree getTree() const { return tree; }

    /** Any thread. The newest content, replacements that the tree has not followed yet included. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createXml() const;

    /** Any thread. Puts the attributes and children of the element in the place of the whole content; its
        tag is not looked at. The tree follows before the call returns on the message thread, and later
        otherwise; what is changed in the tree until then is lost. */
    void replaceContent (const juce::XmlElement& xml);

    /** [message thread] Called after the tree has followed a replacement. */
    std::function<void()> onReplaced;

private:
    void handleAsyncUpdate() override;
    void valueTreePropertyChanged (juce::ValueTree&, const juce::Identifier&) override { storeTree(); }
    void valueTreeChildAdded (juce::ValueTree&, juce::ValueTree&) override { storeTree(); }
    void valueTreeChildRemoved (juce::ValueTree&, juce::ValueTree&, int) override { storeTree(); }
    void valueTreeChildOrderChanged (juce::ValueTree&, int, int) override { storeTree(); }
    void storeTree();

    juce::ValueTree tree;
    bool following = false; // the message thread's own: the tree is being replaced

    juce::CriticalSection lock;
    juce::ValueTree newest;          // guarded by the lock; shared with nobody
    bool replacementWaiting = false; // guarded by the lock: newest is ahead of the tree

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (StateTree)
};

} // namespace mk::pluginCore
