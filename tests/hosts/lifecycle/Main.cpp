// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Instance.h"
#include "Usage.h"

#include <condition_variable>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// A host that loads the bundle, uses it, unloads it, and then ends as every program does: by returning from
// main. It is a program of its own because its exit status is what is tested.
//
//     orlo-bundle-lifecycle BINARY THREAD ROUNDS STEP...
//
// THREAD is the thread that does all this: "main", "ended" for one that ends before main does, or "lasting" for
// one that is still running when main returns. STEP is load, instance, editor, close, delete or unload.
namespace mk::orlo::lifecycle
{
namespace
{
// By then, all that is loaded once and kept, such as fonts and libraries, has been loaded.
constexpr int warmUpRounds = 10;
constexpr size_t allowedGrowth = 64 * 1024;

class Host
{
public:
    explicit Host (std::string binaryToLoad) : binary (std::move (binaryToLoad)) {}

    void play (const std::vector<std::string>& steps, int numRounds)
    {
        std::optional<Usage> usageBefore;

        for (int round = 0; round < numRounds; ++round)
        {
            if (round == warmUpRounds)
                usageBefore = Usage::measure();

            for (const auto& step : steps)
                play (step);
        }

        if (usageBefore)
            compare (*usageBefore, Usage::measure());
    }

private:
    void play (std::string_view step)
    {
        if (step == "load")
            bundle = std::make_unique<Bundle> (binary);
        else if (step == "instance")
            instances.push_back (std::make_unique<Instance> (*bundle));
        else if (step == "editor")
            editors.push_back (std::make_unique<Editor> (*instances.back(), screen, runLoop));
        else if (step == "close")
            editors.pop_back();
        else if (step == "delete")
            instances.pop_back();
        else if (step == "unload")
            bundle = nullptr;
        else
            require (false, "no such step: " + std::string (step));
    }

    static void compare (const Usage& before, const Usage& after)
    {
        std::cout << "threads " << before.numThreads << " -> " << after.numThreads << ", descriptors "
                  << before.numDescriptors << " -> " << after.numDescriptors << ", heap " << before.heapBytes << " -> "
                  << after.heapBytes << std::endl;
        require (after.numThreads <= before.numThreads, "threads are left");
        require (after.numDescriptors <= before.numDescriptors, "descriptors are left");
        require (after.heapBytes <= before.heapBytes + allowedGrowth, "memory is left");
    }

    const std::string binary;
    Screen screen;
    RunLoop runLoop; // as in hosts, one for all windows
    std::unique_ptr<Bundle> bundle;
    std::vector<std::unique_ptr<Instance>> instances;
    std::vector<std::unique_ptr<Editor>> editors;
};

/** Plays on a thread of its own that does not end before the process does. */
void playOnLastingThread (Host& host, const std::vector<std::string>& steps, int numRounds)
{
    // Shared with the thread, which may still hold them when the process exits.
    struct Shared
    {
        std::mutex mutex;
        std::condition_variable changed;
        bool played = false;
    };

    const auto shared = std::make_shared<Shared>();

    std::thread (
        [shared, &host, &steps, numRounds]
        {
            host.play (steps, numRounds);
            std::unique_lock lock (shared->mutex);
            shared->played = true;
            shared->changed.notify_all();
            shared->changed.wait (lock, [] { return false; });
        })
        .detach();

    std::unique_lock lock (shared->mutex);
    shared->changed.wait (lock, [&shared] { return shared->played; });
}
} // namespace
} // namespace mk::orlo::lifecycle

int main (int argc, char* argv[])
{
    using namespace mk::orlo::lifecycle;

    const std::vector<std::string> arguments (argv + 1, argv + argc);
    require (arguments.size() > 3, "arguments: BINARY THREAD ROUNDS STEP...");

    Host host (arguments[0]);
    const std::string_view thread = arguments[1];
    const auto numRounds = std::stoi (arguments[2]);
    const std::vector<std::string> steps (arguments.begin() + 3, arguments.end());

    if (thread == "main")
        host.play (steps, numRounds);
    else if (thread == "ended")
        std::thread ([&] { host.play (steps, numRounds); }).join();
    else if (thread == "lasting")
        playOnLastingThread (host, steps, numRounds);
    else
        require (false, "no such thread: " + std::string (thread));

    return 0;
}
