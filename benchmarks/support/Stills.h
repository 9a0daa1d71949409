// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/stills/HistorySource.h"
#include "orlo/stills/StillScales.h"
#include "orlo/stills/StillWork.h"

#include <juce_core/juce_core.h>

#include <array>
#include <chrono>
#include <cmath>
#include <future>
#include <thread>

/** Pictures to measure. */
namespace mk::orlo::bench
{

inline constexpr double rate = 44100.0;
inline constexpr int width = 1600, height = 1000;

using Clock = std::chrono::steady_clock;

[[nodiscard]] inline double millisecondsSince (Clock::time_point start)
{
    return std::chrono::duration<double, std::milli> (Clock::now() - start).count();
}

/** A minute of stereo: noise, which has points everywhere, and a chord. */
[[nodiscard]] inline std::shared_ptr<KeptSound> makeSound()
{
    constexpr int blockSize = 4410;
    auto sound = std::make_shared<KeptSound> (rate, 2, std::int64_t (60.0 * rate));
    juce::Random random (1);
    std::vector<float> left (blockSize), right (blockSize);

    for (int block = 0; block < 600; ++block)
    {
        for (int i = 0; i < blockSize; ++i)
        {
            const auto time = double (block * blockSize + i) / rate * juce::MathConstants<double>::twoPi;
            const auto chord = 0.1 * (std::sin (220.0 * time) + std::sin (277.2 * time) + std::sin (329.6 * time));
            left[size_t (i)] = float (chord) + 0.1f * (random.nextFloat() - 0.5f);
            right[size_t (i)] = float (chord) + 0.1f * (random.nextFloat() - 0.5f);
        }

        const std::array<const float*, 2> channels { left.data(), right.data() };
        sound->push (channels.data(), 2, blockSize, {});
    }

    return sound;
}

[[nodiscard]] inline StillRequest makeRequest (const std::shared_ptr<KeptSound>& sound, double seconds)
{
    StillRequest request;
    request.source = std::make_shared<HistorySource> (sound);
    request.start = seconds < 60.0 ? 10.0 * rate : 0.0;
    request.length = seconds * rate;
    request.width = width;
    request.height = height;
    return request;
}

/** What a view keeps from picture to picture. */
struct Studio
{
    StillPool threads { int (std::thread::hardware_concurrency()) };
    StillScales scales;
    std::shared_ptr<StillMemory> memory = std::make_shared<StillMemory>();
};

/** Makes the picture on the pool and returns it and the milliseconds until the first picture came. */
struct Drawing
{
    Drawing (Studio& studio, const StillRequest& request)
    {
        std::promise<void> end;
        auto atEnd = end.get_future();
        const auto start = Clock::now();

        const auto work = std::make_shared<StillWork> (
            request,
            studio.scales.obtain (request),
            studio.memory,
            StillWork::Coarse::ifSlow,
            [&] (std::shared_ptr<const StillPicture> made)
            {
                if (picture == nullptr)
                    msToFirst = millisecondsSince (start);

                picture = std::move (made);

                if (! picture->isCoarse())
                    end.set_value();
            },
            [] (const std::exception_ptr&) {});

        studio.threads.add (work, StillPriority::onScreen);
        atEnd.wait();
    }

    std::shared_ptr<const StillPicture> picture;
    double msToFirst = 0.0;
};

} // namespace mk::orlo::bench
