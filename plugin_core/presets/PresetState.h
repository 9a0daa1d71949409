// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

#include <memory>

namespace mk::pluginCore
{

/** What the presets manager needs from the plug-in. */
class PresetState
{
public:
    virtual ~PresetState() = default;

    /** Any thread. The state as XML. If forSession is false, it omits what only sessions store. */
    [[nodiscard]] virtual std::unique_ptr<juce::XmlElement> getStateXml (bool forSession) = 0;

    /** Any thread. Applies a document from getStateXml(). Returns false and changes nothing if it is from
        another product. */
    virtual bool setStateFromXml (const juce::XmlElement& xml, bool forSession) = 0;

    /** Any thread. Replaces the stored copies of the state by the present state. */
    virtual void refreshStateCopies() = 0;

    /** [message thread] Ends the undo step that contains the latest parameter changes. */
    virtual void flushParameterChanges() = 0;

    /** [message thread] The undo history that loading a preset is recorded in. */
    [[nodiscard]] virtual juce::UndoManager& getUndoManager() noexcept = 0;
};

} // namespace mk::pluginCore
