// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace mk::orlo::test
{

/** A user whose system language is the one that a test sets, whatever the real environment says. */
class LocalisedUser : public testing::Test
{
protected:
    LocalisedUser()
    {
        for (const auto* const name : { "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_ADDRESS", "LANG" })
        {
            const auto* const value = std::getenv (name);
            former[name] = value != nullptr ? std::optional<std::string> (value) : std::nullopt;
            unsetenv (name);
        }
    }

    ~LocalisedUser() override
    {
        for (const auto& [name, value] : former)
        {
            if (value.has_value())
                setenv (name.c_str(), value->c_str(), 1);
            else
                unsetenv (name.c_str());
        }

        juce::LocalisedStrings::setCurrentMappings (nullptr);
    }

    static void set (const char* name, const char* value) { setenv (name, value, 1); }

private:
    std::map<std::string, std::optional<std::string>> former;
};

} // namespace mk::orlo::test
