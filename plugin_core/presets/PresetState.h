// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

#include <memory>

namespace mk::pluginCore
{

/** What presets need of the plug-in whose settings they hold. */
class PresetState
{
public:
    virtual ~PresetState() = default;

    /** Any thread. The state as XML; without what belongs to a session alone if not forSession. */
    [[nodiscard]] virtual std::unique_ptr<juce::XmlElement> getStateXml (bool forSession) = 0;

    /** Any thread. Takes a document of getStateXml() over. False, with nothing changed, if it is another
        product's. */
    virtual bool setStateFromXml (const juce::XmlElement& xml, bool forSession) = 0;

    /** Any thread. Makes the present state the one that the kept copies show. */
    virtual void refreshStateCopies() = 0;

    /** [message thread] Closes the step of the undo history that the latest moves of parameters belong to. */
    virtual void flushParameterChanges() = 0;

    /** [message thread] The history that loading a preset is a step of. */
    [[nodiscard]] virtual juce::UndoManager& getUndoManager() noexcept = 0;
};

} // namespace mk::pluginCore
