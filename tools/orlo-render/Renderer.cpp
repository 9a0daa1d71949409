// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Renderer.h"

#include "RenderError.h"
#include "orlo/stills/LevelAssembler.h"
#include "orlo/stills/SectionReader.h"
#include "orlo/stills/SectionRenderer.h"
#include "orlo/stills/ThreadTeam.h"

#include <atomic>
#include <memory>

namespace mk::orlo::render
{
namespace
{
using namespace std::chrono_literals;

// Often enough for a bar that moves and an interruption that seems immediate.
constexpr auto progressInterval = 50ms;

/** What the threads of one picture share. Each takes the next section, makes it and takes another one. */
class Rendering
{
public:
    Rendering (AudioSource& source, const RenderPlan& plan, const RenderSettings& settings, int numThreads)
        : sections (makeSectionPlan (plan, settings.hop.enhanced, numThreads)),
          grid (plan.width, settings.height),
          reader (source, sections),
          assembler (grid, [this] (Column& merged) { renderers.front()->finish (merged); })
    {
        for (std::int64_t i = 0; i < std::min<std::int64_t> (numThreads, sections.getNumSections()); ++i)
            renderers.push_back (std::make_unique<SectionRenderer> (plan, sections, settings));
    }

    [[nodiscard]] LevelGrid run (const Progress& progress)
    {
        ThreadTeam team (int (renderers.size()), [this] (int index) { work (*renderers[size_t (index)]); });
        const juce::ScopeGuard stopAtExit { [this] { stop(); } }; // the team's destructor waits for the threads

        while (! team.waitFor (progressInterval))
            report (progress);

        team.finish();
        report (progress);
        return std::move (grid);
    }

private:
    void report (const Progress& progress) const
    {
        const auto begun = numFramesBegun.load (std::memory_order_relaxed);

        if (! progress (double (begun) / double (sections.getNumFramesToMake())))
            throw RenderError ("interrupted", RenderError::interrupted);
    }

    void work (SectionRenderer& renderer)
    {
        try
        {
            Section section;

            for (std::vector<float> samples; takeSection (section, samples);)
                makeSection (renderer, section, samples);
        }
        catch (...)
        {
            stop(); // the others, whose work has become useless
            throw;
        }
    }

    void makeSection (SectionRenderer& renderer, const Section& section, std::span<const float> samples)
    {
        LevelAssembler::SectionInput input (assembler);
        const auto take = [&input] (const ColumnReducer::Part& part) { input.take (part); };
        const auto goOn = [this]
        {
            numFramesBegun.fetch_add (1, std::memory_order_relaxed);
            return ! isStopped();
        };

        if (renderer.render (section, samples, take, goOn))
            assembler.complete (section.index, std::move (input));
    }

    [[nodiscard]] bool takeSection (Section& section, std::vector<float>& samples)
    {
        const std::lock_guard lock (readerMutex);
        return ! isStopped() && reader.next (section, samples);
    }

    void stop() noexcept { stopped.store (true, std::memory_order_relaxed); }
    [[nodiscard]] bool isStopped() const noexcept { return stopped.load (std::memory_order_relaxed); }

    const SectionPlan sections;
    LevelGrid grid;

    std::mutex readerMutex; // guards the reader and its source
    SectionReader reader;

    LevelAssembler assembler;
    std::vector<std::unique_ptr<SectionRenderer>> renderers; // one for each thread

    std::atomic<bool> stopped { false };            // set by any thread, read by the working ones
    std::atomic<std::int64_t> numFramesBegun { 0 }; // added to by the working threads, read by the calling one
};

} // namespace

LevelGrid renderLevels (AudioSource& source,
                        const RenderPlan& plan,
                        const RenderSettings& settings,
                        int numThreads,
                        const Progress& progress)
{
    return Rendering (source, plan, settings, numThreads).run (progress);
}

} // namespace mk::orlo::render
