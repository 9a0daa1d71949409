// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AttachedParamsControlBase.h"

#include <memory>

namespace mk::pluginCore
{

/** Connects the two thumbs of a two-value slider to two parameters. Each drag is a gesture on the parameter of
    the dragged thumb, and a transaction of the state's undo manager, if it has one.

    An id that names no parameter is ignored. State and slider must outlive the attachment. [message thread] */
class TwoValueSliderAttachment
{
public:
    /** The ids of the minimum and of the maximum, in this order. */
    TwoValueSliderAttachment (juce::AudioProcessorValueTreeState& state,
                              const juce::StringArray& paramIDs,
                              juce::Slider& slider);
    ~TwoValueSliderAttachment();

private:
    class Pimpl;
    const std::unique_ptr<Pimpl> pimpl;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TwoValueSliderAttachment)
};

} // namespace mk::pluginCore
