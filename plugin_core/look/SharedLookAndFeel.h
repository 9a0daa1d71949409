// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace mk::pluginCore
{

/** The look and feel that all open editors of a process share: created for the first of them, deleted with
    the last. */
template <typename Style>
class SharedLookAndFeel
{
public:
    /** [message thread, of which hosts may have several over time] Returns the existing instance, or creates
        one and makes it the desktop's default. */
    [[nodiscard]] static std::shared_ptr<Style> acquire()
    {
        const juce::SpinLock::ScopedLockType scopedLock (lock);

        if (auto present = holder.lock())
            return present;

        auto made = std::make_shared<Style>();
        juce::LookAndFeel::setDefaultLookAndFeel (made.get());
        holder = made;
        return made;
    }

private:
    static inline juce::SpinLock lock;
    static inline std::weak_ptr<Style> holder; // guarded by the lock
};

} // namespace mk::pluginCore
