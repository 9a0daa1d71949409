// SPDX-License-Identifier: AGPL-3.0-or-later
#include <juce_core/juce_core.h>

#if JUCE_LINUX

    #include "plugin_core/window/X11ActiveWindow.h"

    #include "tests/support/MessageLoop.h"
    #include "tests/support/XServer.h"

    #include <gtest/gtest.h>

    #include <functional>
    #include <unistd.h>

namespace mk::pluginCore
{
namespace
{
/** A server of the test's own, where the test plays the window manager. */
class ActiveWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! server.isRunning())
            GTEST_SKIP() << "needs Xvfb";
    }

    /** Waits for the expected answer, which changes once the server's event has arrived. */
    [[nodiscard]] static bool becomes (bool expected, const std::function<bool()>& ask)
    {
        return orlo::test::pumpUntil ([&] { return ask() == expected; });
    }

    orlo::test::XServer server;
};

constexpr std::uint32_t anotherProcess = 1;
} // namespace

TEST_F (ActiveWindow, BelongsToUsWithoutAWindowManager)
{
    const X11ActiveWindow active (server.getDisplayName());
    EXPECT_TRUE (active.belongsTo (nullptr));
}

TEST_F (ActiveWindow, BelongsToUsIfItIsAWindowOfOurProcess)
{
    const X11ActiveWindow active (server.getDisplayName());
    server.setActiveWindow (server.createWindow (std::uint32_t (getpid())));
    EXPECT_TRUE (active.belongsTo (nullptr));

    server.setActiveWindow (server.createWindow (anotherProcess));
    EXPECT_TRUE (becomes (false, [&] { return active.belongsTo (nullptr); }));
}

TEST_F (ActiveWindow, BelongsToUsIfOurWindowLiesInIt)
{
    const X11ActiveWindow active (server.getDisplayName());
    const auto host = server.createWindow (anotherProcess);
    const auto inner = server.createWindow (anotherProcess, server.createWindow (anotherProcess, host));
    const auto other = server.createWindow (anotherProcess);

    server.setActiveWindow (host);
    EXPECT_TRUE (active.belongsTo (orlo::test::XServer::toHandle (inner)));
    EXPECT_TRUE (active.belongsTo (orlo::test::XServer::toHandle (host)));
    EXPECT_FALSE (active.belongsTo (orlo::test::XServer::toHandle (other)));

    server.setActiveWindow (other);
    EXPECT_TRUE (becomes (false, [&] { return active.belongsTo (orlo::test::XServer::toHandle (inner)); }));
}

TEST_F (ActiveWindow, IsNotOursIfThereIsNone)
{
    const X11ActiveWindow active (server.getDisplayName());
    server.setActiveWindow (0);
    EXPECT_FALSE (active.belongsTo (nullptr));
}

TEST_F (ActiveWindow, MayCloseAtAnyMoment)
{
    const X11ActiveWindow active (server.getDisplayName());
    const auto window = server.createWindow (std::uint32_t (getpid()));
    server.setActiveWindow (window);
    server.destroyWindow (window);
    EXPECT_FALSE (active.belongsTo (nullptr));
    EXPECT_FALSE (active.belongsTo (orlo::test::XServer::toHandle (0x7fffff)));
}

TEST_F (ActiveWindow, IsViewableIfItsStateIsUnknown)
{
    const X11ActiveWindow active (server.getDisplayName());
    const auto unmapped = server.createWindow (anotherProcess);
    EXPECT_FALSE (active.isViewable (orlo::test::XServer::toHandle (unmapped)));
    EXPECT_TRUE (active.isViewable (nullptr));
    EXPECT_TRUE (active.isViewable (orlo::test::XServer::toHandle (0x7fffff))) << "no such window";
    server.stop();
    EXPECT_TRUE (active.isViewable (orlo::test::XServer::toHandle (unmapped)));
}

TEST_F (ActiveWindow, BelongsToUsOnceTheServerHasEnded)
{
    const X11ActiveWindow active (server.getDisplayName());
    server.setActiveWindow (server.createWindow (anotherProcess));
    ASSERT_FALSE (active.belongsTo (nullptr));
    server.stop();
    EXPECT_TRUE (active.belongsTo (nullptr));
}

TEST_F (ActiveWindow, IsQueriedOnceAsLongAsNothingChanges)
{
    const X11ActiveWindow active (server.getDisplayName());
    auto* const window = orlo::test::XServer::toHandle (server.createWindow (anotherProcess));
    server.setActiveWindow (server.createWindow (anotherProcess));
    EXPECT_TRUE (becomes (false, [&] { return active.belongsTo (window); }));
    EXPECT_FALSE (active.isViewable (window));

    const auto numRoundTrips = active.getNumRoundTrips();
    const auto numChanges = active.getNumChanges();

    for (int i = 0; i < 100; ++i)
    {
        EXPECT_FALSE (active.belongsTo (window));
        EXPECT_FALSE (active.isViewable (window));
    }

    EXPECT_EQ (active.getNumRoundTrips(), numRoundTrips);
    EXPECT_EQ (active.getNumChanges(), numChanges);
}

TEST_F (ActiveWindow, IsViewableAsLongAsAllWindowsAroundItAreMapped)
{
    const X11ActiveWindow active (server.getDisplayName());
    const auto outer = server.createWindow (anotherProcess);
    const auto inner = server.createWindow (anotherProcess, outer);
    const auto ask = [&] { return active.isViewable (orlo::test::XServer::toHandle (inner)); };
    EXPECT_FALSE (ask());

    server.setMapped (inner, true);
    server.setMapped (outer, true);
    EXPECT_TRUE (becomes (true, ask));

    const auto numChanges = active.getNumChanges();
    server.setMapped (outer, false);
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return active.getNumChanges() != numChanges; }));
    EXPECT_FALSE (ask());
}

TEST_F (ActiveWindow, CausesNoChangesOnceItHasClosed)
{
    const X11ActiveWindow active (server.getDisplayName());
    const auto window = server.createWindow (anotherProcess);
    const auto ask = [&] { return active.isViewable (orlo::test::XServer::toHandle (window)); };
    EXPECT_FALSE (ask());
    server.destroyWindow (window);
    EXPECT_TRUE (becomes (true, ask)) << "its state is unknown";

    // The window no longer exists, so each call that selects its events causes an X error.
    const auto other = server.createWindow (anotherProcess);
    server.destroyWindow (other);
    EXPECT_TRUE (active.isViewable (orlo::test::XServer::toHandle (other)));
    const auto numChanges = active.getNumChanges();

    for (int i = 0; i < 100; ++i)
        EXPECT_TRUE (ask());

    EXPECT_EQ (active.getNumChanges(), numChanges);
}

TEST (ActiveWindowWithoutServer, BelongsToUs)
{
    const X11ActiveWindow active (":4711");
    EXPECT_TRUE (active.belongsTo (nullptr));
}

} // namespace mk::pluginCore

#endif
