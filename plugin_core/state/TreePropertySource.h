// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

namespace mk::pluginCore
{

/** The source of juce::Values that refer to a property of a tree which may be replaced by another tree. After
    a replacement the values refer to the new tree, and their listeners are called if the property differs.
    [message thread] */
class TreePropertySource final : public juce::Value::ValueSource, private juce::ValueTree::Listener
{
public:
    /** Reads as the default in a tree without the property. */
    TreePropertySource (juce::Identifier propertyToReferTo, juce::var defaultToUse);
    ~TreePropertySource() override;

    void setTree (const juce::ValueTree& newTree);

    [[nodiscard]] juce::var getValue() const override;
    void setValue (const juce::var& newValue) override;

private:
    void valueTreePropertyChanged (juce::ValueTree& changedTree, const juce::Identifier& changedProperty) override;

    const juce::Identifier property;
    const juce::var defaultValue;
    juce::ValueTree tree;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TreePropertySource)
};

} // namespace mk::pluginCore
