// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/StateBlob.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/OnParameterChange.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace mk::orlo::test
{
namespace
{

constexpr int numRounds = 200;

/** Runs work a number of times on a thread of its own, and decrements the count of running threads at the end. */
class Worker
{
public:
    template <typename Work>
    Worker (std::atomic<int>& numRunning, Work work)
        : thread (
            [&numRunning, work]
            {
                for (int round = 0; round < numRounds; ++round)
                    work (round);

                numRunning.fetch_sub (1);
            })
    {
    }

    ~Worker() { thread.join(); }

private:
    std::thread thread;
};

[[nodiscard]] std::unique_ptr<juce::XmlElement> makeSession (TestProcessor& processor, const char* value)
{
    auto xml = processor.makeSession ({ { "floor", value }, { "ceiling", value } });
    xml->setAttribute ("lockedParams", "");
    xml->createNewChildElement ("Settings")->setAttribute ("a", value);
    xml->createNewChildElement ("Data")->setAttribute ("b", value);
    auto* const preset = xml->createNewChildElement ("lastPreset");
    preset->setAttribute ("root", "USER");
    preset->setAttribute ("path", juce::String (value) + ".mkpreset");
    return xml;
}

/** The values of the two parameters that every session sets alike. */
[[nodiscard]] std::pair<juce::String, juce::String> getBoth (const juce::MemoryBlock& blob)
{
    const auto xml = pluginCore::readStateBlob (blob.getData(), int (blob.getSize()));

    if (xml == nullptr)
        return { "no", "document" };

    const auto* const parameters = xml->getChildByName ("PARAMS");
    const auto get = [parameters] (const char* id)
    { return parameters->getChildByAttribute ("id", id)->getStringAttribute ("value"); };

    return { get ("floor"), get ("ceiling") };
}

TEST (SessionThreads, AHostRestoresSavesPlaysAndEditsAtTheSameTime)
{
    TestProcessor processor;
    processor.applyInitialSettings();
    processor.restore (*makeSession (processor, "-10.0"));

    auto& presets = processor.getPresetsManager();
    auto& undo = processor.getUndoManager();
    const auto preset = processor.writePreset ("p.mkpreset", { { "floor", "-30" }, { "ceiling", "-30" } });
    const auto first = makeSession (processor, "-10.0");
    const auto second = makeSession (processor, "-20.0");
    std::atomic<int> numRunning { 4 }, numMixed { 0 };

    // Odd while an undo is running. An undo restores one value after the other, so a save meanwhile may mix
    // both states.
    std::atomic<int> undoSteps { 0 };

    {
        const Worker firstHost (numRunning, [&] (int) { processor.restore (*first); });
        const Worker secondHost (numRunning,
                                 [&] (int round)
                                 {
                                     processor.restore (*second);
                                     const char junk[] = "junk from a host";
                                     processor.setStateInformation (junk, round % int (sizeof (junk)));
                                 });
        const Worker saver (numRunning,
                            [&] (int)
                            {
                                const auto stepsBefore = undoSteps.load();
                                juce::MemoryBlock blob;
                                processor.getStateInformation (blob);
                                const auto [floor, ceiling] = getBoth (blob);
                                const auto isDisturbed = stepsBefore % 2 != 0 || undoSteps.load() != stepsBefore;

                                if (floor != ceiling && ! isDisturbed)
                                    numMixed.fetch_add (1);
                            });
        const Worker audio (numRunning,
                            [&] (int round)
                            {
                                processor.getParameter ("skewed").setValueNotifyingHost (float (round % 10) * 0.1f);
                                processor.runBlock();
                            });

        auto view = processor.getSessionState().getSettings().getTree();
        int round = 0;

        EXPECT_TRUE (pumpUntil (
            [&]
            {
                view.setProperty ("moved", ++round, nullptr);
                presets.loadPresetFile (preset, &undo);

                if (round % 3 == 0)
                {
                    ++undoSteps;
                    undo.undo();
                    ++undoSteps;
                }

                return numRunning.load() == 0;
            },
            120.0));
    }

    EXPECT_EQ (numMixed, 0);

    // The last restore wins with all its values.
    std::thread ([&] { processor.restore (*second); }).join();
    juce::MemoryBlock blob;
    processor.getStateInformation (blob);
    EXPECT_EQ (getBoth (blob), (std::pair<juce::String, juce::String> ("-20.0", "-20.0")));
    pumpPending();
    EXPECT_EQ (processor.getSessionState().getSettings().getTree()["a"].toString(), "-20.0");
    EXPECT_EQ (processor.getSessionState().getData().getTree()["b"].toString(), "-20.0");
    EXPECT_EQ (presets.getCurrentPresetFile().getFileName(), "-20.0.mkpreset");
    EXPECT_FALSE (undo.canUndo());
}

TEST (SessionThreads, AHostMaySaveInAParameterCallbackWhileAnotherThreadRestores)
{
    TestProcessor processor;
    processor.applyInitialSettings();
    const OnParameterChange host (processor.getParameter ("floor"),
                                  [&processor]
                                  {
                                      juce::MemoryBlock blob;
                                      processor.getStateInformation (blob);
                                  });
    const auto first = makeSession (processor, "-10.0");
    const auto second = makeSession (processor, "-20.0");
    std::atomic<int> numRunning { 1 };

    const Worker restoring (numRunning, [&] (int round) { processor.restore (round % 2 == 0 ? *first : *second); });

    EXPECT_TRUE (pumpUntil (
        [&, round = 0]() mutable
        {
            processor.setValue ("floor", -float (++round % 100));
            return numRunning.load() == 0;
        },
        120.0));
}

} // namespace
} // namespace mk::orlo::test
