// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/exports/FileJobs.h"

#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>

namespace mk::orlo::test
{
namespace
{

TEST (FileJobs, RunOneAfterTheOtherBesideTheMessageThreadAndTellHowTheyEnded)
{
    FileJobs jobs;
    juce::StringArray ended;
    jobs.onFinished = [&ended] (const juce::String& name, const juce::Result& result)
    { ended.add (name + ":" + (result.wasOk() ? "written" : result.getErrorMessage())); };

    std::atomic<int> numRunning { 0 };
    const auto work = [&numRunning] (const FileJobs::ShouldGoOn& shouldGoOn)
    {
        EXPECT_EQ (++numRunning, 1);
        EXPECT_FALSE (juce::MessageManager::existsAndIsCurrentThread());
        EXPECT_TRUE (shouldGoOn());
        --numRunning;
        return juce::Result::ok();
    };

    jobs.add ("a", work);
    jobs.add ("b", [] (const FileJobs::ShouldGoOn&) { return juce::Result::fail ("full"); });
    jobs.add ("c", work);
    jobs.add ("d", [] (const FileJobs::ShouldGoOn&) -> juce::Result { throw std::bad_alloc(); });

    ASSERT_TRUE (pumpUntil ([&ended] { return ended.size() == 4; }));
    EXPECT_EQ (ended[0], "a:written");
    EXPECT_EQ (ended[1], "b:full");
    EXPECT_EQ (ended[2], "c:written");
    EXPECT_TRUE (ended[3].startsWith ("d:") && ended[3].length() > 2);
}

TEST (FileJobs, AreDoneBeforeTheEndButLearnThatItComes)
{
    std::atomic<bool> isRunning { false }, hasEnded { false };
    auto isLastDone = false;

    {
        FileJobs jobs;
        jobs.add ("a",
                  [&] (const FileJobs::ShouldGoOn& shouldGoOn)
                  {
                      isRunning = true;

                      while (shouldGoOn())
                          juce::Thread::yield();

                      hasEnded = true;
                      return juce::Result::ok();
                  });
        jobs.add ("b",
                  [&isLastDone] (const FileJobs::ShouldGoOn&)
                  {
                      isLastDone = true;
                      return juce::Result::ok();
                  });
        ASSERT_TRUE (pumpUntil ([&isRunning] { return isRunning.load(); }));
    }

    EXPECT_TRUE (hasEnded);
    EXPECT_TRUE (isLastDone);
}

} // namespace
} // namespace mk::orlo::test
