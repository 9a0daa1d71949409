// SPDX-License-Identifier: AGPL-3.0-or-later
// Still pictures of kept sound, compared with the engine that draws the live picture and with orlo-render.
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FrequencyScale.h"
#include "orlo/analysis/SpectralAnalyser.h"
#include "tools/orlo-render/Renderer.h"

#include "benchmarks/support/Measure.h"
#include "benchmarks/support/Stills.h"

#include <algorithm>
#include <cstdio>

namespace mk::orlo::bench
{
namespace
{
/** The live picture's columns of a run of sound, on this thread and without queues. */
void runEngine (HistorySource& source, const StillRequest& request)
{
    const auto hop = planHop (request.hop).samplesPerFrame;
    std::vector<float> samples (size_t (request.length));
    source.read (std::int64_t (request.start), samples);

    SpectralAnalyser analyser;
    AnalysisSettings settings;
    settings.window.windowLength = request.hop.windowSize - 1;
    settings.hop = hop;
    settings.enhanced = request.hop.enhanced;
    settings.magnitudeThreshold = magnitudeForDecibels (-100.0f);
    analyser.configure (settings.window);

    FrequencyScale scale;
    scale.setRange (0.0f, float (request.hop.sampleRate * 0.5));
    scale.notifyListenersNow();
    ColumnMapper mapper;
    Frame frame;
    Column column;

    for (size_t position = 0; position + size_t (hop) <= samples.size(); position += size_t (hop))
    {
        analyser.process (samples.data() + position, settings, request.hop.sampleRate, frame);
        mapper.map (frame, makeColumnSettings (frame.format, { 0.0f, 1.0f, -100.0f, 0.0f, height }), scale, column);
        benchmark::DoNotOptimize (column.data());
    }
}

void compareWithEngine (const std::shared_ptr<KeptSound>& sound, const std::shared_ptr<Studio>& studio)
{
    for (const auto enhanced : { true, false })
        for (const auto seconds : { 4.0, 6.0 })
        {
            auto request = makeRequest (sound, seconds);
            request.hop.enhanced = enhanced;
            const auto name = std::string (enhanced ? "Enhanced" : "Classic") + " 2048, "
                              + std::to_string (int (seconds)) + " s on view, a setting changed";

            compare (
                name,
                [=] { const Drawing drawing (*studio, request); },
                [=, source = std::make_shared<HistorySource> (sound)] { runEngine (*source, request); },
                0.7);
        }
}

void compareColouring (const std::shared_ptr<KeptSound>& sound, const std::shared_ptr<Studio>& studio)
{
    const auto picture = Drawing (*studio, makeRequest (sound, 4.0)).picture;
    const StillColours colours { -90.0f, -10.0f, std::make_shared<const ColourMap> (3u) };
    const auto still =
        std::make_shared<juce::Image> (juce::Image::RGB, width, height, false, juce::SoftwareImageType());
    const auto argb = std::make_shared<juce::Image> (juce::Image::ARGB, width, height, true, juce::SoftwareImageType());
    const auto window =
        std::make_shared<juce::Image> (juce::Image::RGB, width, height, false, juce::SoftwareImageType());

    compare (
        "colours or levels changed",
        [=]
        {
            juce::Image::BitmapData data (*still, juce::Image::BitmapData::writeOnly);
            picture->paint (colours, data, 0, height);
        },
        [=]
        {
            juce::Graphics graphics (*window);
            graphics.drawImageAt (*argb, 0, 0);
        },
        2.0);
}

/** What orlo-render does for a picture, without the reading of its command line and without the PNG file. */
void compareWithRenderer (const std::shared_ptr<KeptSound>& sound, const std::shared_ptr<Studio>& studio)
{
    const auto file = std::make_shared<juce::TemporaryFile> (".wav");
    const auto request = makeRequest (sound, 60.0);

    {
        std::array<std::vector<float>, 2> channels;
        std::array<const float*, 2> pointers {};

        for (size_t i = 0; i < channels.size(); ++i)
        {
            channels[i].resize (size_t (request.length));
            juce::ignoreUnused (sound->read (int (i), 0, channels[i].data(), int (request.length)));
            pointers[i] = channels[i].data();
        }

        auto stream = file->getFile().createOutputStream();
        const std::unique_ptr<juce::AudioFormatWriter> writer (
            juce::WavAudioFormat().createWriterFor (stream.release(), rate, 2, 32, {}, 0));
        writer->writeFromFloatArrays (pointers.data(), 2, int (request.length));
    }

    compare (
        "Enhanced 2048, 60 s on view",
        [=] { const Drawing drawing (*studio, request); },
        [=]
        {
            render::AudioSource source (file->getFile());
            RenderSettings settings;
            settings.hop = request.hop;
            settings.height = height;
            const auto plan = makePlan ({ request.hop, 0, source.getLength(), width });
            const auto levels = render::renderLevels (
                source, plan, settings, studio->threads.getNumThreads(), [] (double) { return true; });
            benchmark::DoNotOptimize (levels.get (0, 0));
        },
        1.1);
}

void reportTimes (const std::shared_ptr<KeptSound>& sound, const std::shared_ptr<Studio>& studio)
{
    const auto medianOf = [] (auto&& action)
    {
        std::vector<double> times;

        for (int i = 0; i < 31; ++i)
            times.push_back (action());

        std::nth_element (times.begin(), times.begin() + 15, times.end());
        return times[15];
    };

    for (const auto seconds : { 0.1, 4.0, 60.0 })
    {
        const auto request = makeRequest (sound, seconds);
        const auto first = medianOf ([&] { return Drawing (*studio, request).msToFirst; });
        std::printf (
            "%.1f s on view: first picture after %.1f ms (wanted %d)\n", seconds, first, seconds > 4.0 ? 100 : 60);
    }

    // How long the message thread is held up, and until all threads have left a picture that is no longer wanted.
    const auto request = makeRequest (sound, 60.0);
    const auto prepare = medianOf (
        [&]
        {
            const auto start = Clock::now();
            const StillWork work (
                request,
                makeStillScale (request),
                std::make_shared<StillMemory>(),
                StillWork::Coarse::ifSlow,
                [] (const auto&) {},
                [] (const auto&) {});
            return millisecondsSince (start);
        });
    const auto leave = medianOf (
        [&]
        {
            StillPool own (2);
            const auto work = std::make_shared<StillWork> (
                request,
                makeStillScale (request),
                std::make_shared<StillMemory>(),
                StillWork::Coarse::ifSlow,
                [] (const auto&) {},
                [] (const auto&) {});
            own.add (work, StillPriority::onScreen);

            while (work->getProgress() < 0.05)
                std::this_thread::yield();

            const auto start = Clock::now();
            work->cancel();

            std::promise<void> end;

            /** Done when both threads are free. */
            struct Last final : StillJob
            {
                explicit Last (std::promise<void>& promise) : end (promise) {}
                [[nodiscard]] bool hasWork() const noexcept override { return left.load() > 0; }
                [[nodiscard]] bool isFinished() const noexcept override { return numHere.load() == 2; }

                Outcome run() noexcept override
                {
                    if (left.fetch_sub (1) < 1)
                        return Outcome::nothingToDo;

                    if (numHere.fetch_add (1) == 1)
                        end.set_value();

                    while (numHere.load() < 2)
                        std::this_thread::yield();

                    return Outcome::done;
                }

                std::promise<void>& end;
                std::atomic<int> left { 2 }, numHere { 0 };
            };

            own.add (std::make_shared<Last> (end), StillPriority::onScreen);
            end.get_future().wait();
            return millisecondsSince (start);
        });
    std::printf ("request %.2f ms, cancelled after %.2f ms (wanted 5)\n", prepare, leave);
}
} // namespace

void registerBenchmarks()
{
    const auto sound = makeSound();
    const auto studio = std::make_shared<Studio>();

    report ("times", [=] { reportTimes (sound, studio); });
    compareWithEngine (sound, studio);
    compareColouring (sound, studio);
    compareWithRenderer (sound, studio);
}

} // namespace mk::orlo::bench
