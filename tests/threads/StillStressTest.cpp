// SPDX-License-Identifier: AGPL-3.0-or-later
// Draws stills of the kept sound while it is played, kept, dropped and of another rate. Most useful under
// ThreadSanitizer.
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/stills/HistorySource.h"
#include "orlo/stills/StillDrawer.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace mk::orlo::test
{
namespace
{

using Clock = std::chrono::steady_clock;

TEST (Stills, AreDrawnWhileSettingsSoundAndWindowsChange)
{
    AudioPluginAudioProcessor processor;
    processor.prepareToPlay (44100.0, 4096);
    processor.setAnalysisSuspended (false);

    std::atomic<bool> done { false };
    std::thread audio (
        [&]
        {
            const auto noise = makeReferenceSignal ("noise", 8192, 44100.0);
            juce::AudioBuffer<float> buffer (2, 4096);
            juce::MidiBuffer midi;

            for (unsigned i = 0; ! done.load(); ++i)
            {
                buffer.setSize (2, 1 + int (i * 97u % 4096u), false, false, true);

                for (int channel = 0; channel < 2; ++channel)
                    buffer.copyFrom (channel, 0, noise.data() + 100 * channel, buffer.getNumSamples());

                processor.processBlock (buffer, midi);
                std::this_thread::sleep_for (std::chrono::microseconds (200));
            }
        });

    std::unique_ptr<StillDrawer> view, overview;
    int numPictures = 0, numFailures = 0;

    const auto makeDrawer = [&] (StillPriority priority)
    {
        auto drawer = std::make_unique<StillDrawer> (priority);
        drawer->onPicture = [&numPictures] (const auto& picture)
        {
            const auto image = picture->paint ({ -90.0f, -10.0f, std::make_shared<const ColourMap> (3u) });
            numPictures += image.isValid() ? 1 : 0;
        };
        drawer->onFailure = [&numFailures] (const juce::String&) { ++numFailures; };
        return drawer;
    };

    const auto end = Clock::now() + std::chrono::seconds (hasThreadSanitizer ? 20 : 5);

    for (int i = 0; Clock::now() < end; ++i)
    {
        // A window opens and closes.
        if (i % 40 == 0)
        {
            processor.setSoundKept (true);
            view = makeDrawer (StillPriority::onScreen);
            overview = makeDrawer (StillPriority::beside);
        }

        if (i % 40 == 39)
        {
            view = nullptr;
            overview = nullptr;
            processor.setSoundKept (i % 80 != 39);
        }

        if (const auto sound = processor.getSoundHistory().getSound(); sound != nullptr && view != nullptr)
        {
            StillRequest request;
            const auto source = std::make_shared<HistorySource> (sound);
            request.source = source;
            request.start = double (source->getStart());
            request.length = double (1 + source->getEnd() - source->getStart());
            request.width = 100 + i % 200;
            request.height = 50 + i % 70;
            request.hop = { i % 2 == 0 ? 512 : 2048, 44100.0, 40.0f, false, i % 3 != 0 };
            request.scaleType = i % 5;
            overview->draw (request);
            request.length = double (1 + i % 20000);
            view->draw (request);

            // Under a sanitizer no picture is finished before the next request, unless one is waited for.
            if (i % 20 == 10)
            {
                EXPECT_TRUE (pumpUntil ([&] { return ! view->isDrawing(); }, 60.0));
            }
        }

        pumpPending();
        std::this_thread::sleep_for (std::chrono::milliseconds (i % 8));
    }

    done.store (true);
    audio.join();
    EXPECT_GT (numPictures, 0);
}

} // namespace
} // namespace mk::orlo::test
