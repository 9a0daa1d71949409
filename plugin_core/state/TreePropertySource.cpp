// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TreePropertySource.h"

namespace mk::pluginCore
{

TreePropertySource::TreePropertySource (juce::Identifier propertyToReferTo, juce::var defaultToUse)
    : property (std::move (propertyToReferTo)), defaultValue (std::move (defaultToUse))
{
    tree.addListener (this);
}

TreePropertySource::~TreePropertySource() { tree.removeListener (this); }

void TreePropertySource::setTree (const juce::ValueTree& newTree)
{
    const auto former = getValue();

    // JUCE attaches listeners to the ValueTree object, so they stay registered after an assignment.
    tree = newTree;

    if (getValue() != former)
        sendChangeMessage (false);
}

juce::var TreePropertySource::getValue() const { return tree.getProperty (property, defaultValue); }

void TreePropertySource::setValue (const juce::var& newValue) { tree.setProperty (property, newValue, nullptr); }

void TreePropertySource::valueTreePropertyChanged (juce::ValueTree& changedTree,
                                                   const juce::Identifier& changedProperty)
{
    if (changedTree == tree && changedProperty == property)
        sendChangeMessage (false);
}

} // namespace mk::pluginCore
