// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::pluginCore
{

/** A parameter of the JUCE class T that hosts must not offer for automation. */
template <typename T>
class NonAutomatableParameter final : public T
{
public:
    using T::T;

    [[nodiscard]] bool isAutomatable() const override { return false; }
};

} // namespace mk::pluginCore
