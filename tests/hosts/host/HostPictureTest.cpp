// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ColourMap.h"
#include "orlo/analysis/FrequencyScale.h"
#include "orlo/window/MainLayout.h"
#include "tests/hosts/support/HostProcess.h"
#include "tests/hosts/support/Picture.h"
#include "tests/hosts/support/ScratchFolder.h"
#include "tests/hosts/support/VirtualDisplay.h"
#include "tests/support/TemporaryHome.h"
#include "tools/orlo-host/DemoSignal.h"

#include <gmock/gmock.h>
#include <juce_audio_formats/juce_audio_formats.h>

#include <future>

namespace mk::orlo::test
{
namespace
{
constexpr unsigned gray = 0, viridis = 2;
constexpr int width = 1050, height = 578;

/** The columns that show the whole chord and that 3.5 s of audio fill even on a machine so busy that it keeps
    only half of its frames. */
constexpr int firstColumn = 280, lastColumn = 420;

class HostPicture : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE (display.getName(), "") << "Xvfb does not start"; }

    /** Plays with the given options and looks at the window at the end. */
    [[nodiscard]] Picture takePicture (juce::StringArray arguments)
    {
        arguments.addArray ({ "--screenshot", scratch.getPath ("picture.png") });
        const auto result = runHostOn (display.getName(), arguments);
        EXPECT_EQ (result.exitCode, 0);
        EXPECT_EQ (result.errors, "");
        return Picture (scratch.getFile ("picture.png"));
    }

    /** The spectrogram in the window, without the columns that the grip in the corner covers. */
    [[nodiscard]] static Picture getSpectrogram (const Picture& window)
    {
        constexpr auto gripWidth = 30;
        const auto layout = layOutMain ({ window.getWidth(), window.getHeight(), false, false, false, false, false });
        return window.getPart (layout.spectrogram.withTrimmedRight (gripWidth));
    }

    [[nodiscard]] static int rowOf (double hz, double sampleRate)
    {
        FrequencyScale scale;
        scale.setScaleType (FrequencyScale::log);
        scale.setRange (0.0f, float (sampleRate / 2.0));
        return juce::roundToInt ((1.0f - scale.positionForFrequency (float (hz))) * float (height - 1));
    }

    /** Expects no colours but the map's and the background. */
    static void expectColoursOf (unsigned mapIndex, const Picture& picture)
    {
        const ColourMap map (mapIndex);
        std::set<juce::uint32> allowed { juce::Colours::black.getARGB() };

        for (const auto pixel : map.getPixels())
            allowed.insert (pixel);

        const auto colours = picture.getColours();
        EXPECT_TRUE (std::includes (allowed.begin(), allowed.end(), colours.begin(), colours.end()));
    }

    // A window opens at the size of the last one.
    const TemporaryHome home;
    VirtualDisplay display;
    const ScratchFolder scratch;
};

TEST_F (HostPicture, ShowsTheChordAsLinesAndTheClicksAsColumns)
{
    const auto window = takePicture ({ "--seconds", "3.5" });
    ASSERT_EQ (window.getWidth(), width);
    ASSERT_EQ (window.getHeight(), height);
    const auto picture = getSpectrogram (window);
    ASSERT_GT (picture.countPaintedColumns (0, height), lastColumn);

    const auto lineAt = [&] (double hz)
    { return picture.getLineBrightness (rowOf (hz, 48000.0), 1, firstColumn, lastColumn); };

    const auto root = host::demo::getRoot (0);

    for (int partial = 1; partial <= 6; ++partial)
    {
        EXPECT_GT (lineAt (root * partial), 110.0) << "partial " << partial;
        EXPECT_LT (lineAt (root * std::sqrt (partial * (partial + 1.0))), 60.0) << "above partial " << partial;
    }

    // The clicks alone reach above the noise, and they are thin.
    const auto clicks = picture.countPaintedColumns (1, rowOf (22000.0, 48000.0));
    EXPECT_GE (clicks, 3);
    EXPECT_LE (clicks, 40);

    // The picture shows many levels.
    expectColoursOf (gray, picture);
    EXPECT_GT (picture.getColours().size(), 100u);
}

TEST_F (HostPicture, HasTheColoursOfTheMapThatWasSet)
{
    const auto picture = getSpectrogram (takePicture ({ "--seconds", "1.5", "--set", "colourMap=viridis" }));
    expectColoursOf (viridis, picture);
    EXPECT_GT (picture.getColours().size(), 80u);
}

TEST_F (HostPicture, StaysBlackWhenFrozenFromTheStart)
{
    const auto picture = getSpectrogram (takePicture ({ "--seconds", "1", "--set", "freeze=on" }));
    EXPECT_THAT (picture.getColours(), testing::ElementsAre (juce::Colours::black.getARGB()));
}

TEST_F (HostPicture, KeepsRunningUnderAutoFreezeBecauseTheTransportPlays)
{
    const auto picture = getSpectrogram (takePicture ({ "--seconds", "1.5", "--set", "autoFreeze=on" }));
    EXPECT_GT (picture.countPaintedColumns (0, height), 100);
}

TEST_F (HostPicture, HasTheSizeThatTheEditorWasGiven)
{
    const auto picture = takePicture ({ "--seconds", "1.5", "--size", "701x386" });
    EXPECT_EQ (picture.getWidth(), 701);
    EXPECT_EQ (picture.getHeight(), 386);
    EXPECT_GT (getSpectrogram (picture).countPaintedColumns (0, 386), 100);
}

TEST_F (HostPicture, ShowsAnAudioFileAtItsOwnRate)
{
    constexpr double rate = 32000.0, hz = 997.0;
    juce::AudioBuffer<float> sine (1, int (rate));

    for (int i = 0; i < sine.getNumSamples(); ++i)
        sine.setSample (0, i, float (0.5 * std::sin (juce::MathConstants<double>::twoPi * hz * i / rate)));

    {
        auto stream = std::make_unique<juce::FileOutputStream> (scratch.getFile ("sine.wav"));
        const std::unique_ptr<juce::AudioFormatWriter> writer (
            juce::WavAudioFormat().createWriterFor (stream.release(), rate, 1, 24, {}, 0));
        ASSERT_TRUE (writer->writeFromAudioSampleBuffer (sine, 0, sine.getNumSamples()));
    }

    // Longer than the file, which repeats without a seam because it holds a whole number of the sine's periods.
    const auto picture = getSpectrogram (takePicture ({ "--seconds", "2.5", scratch.getPath ("sine.wav") }));
    EXPECT_GT (picture.getLineBrightness (rowOf (hz, rate), 1, 100, 400), 200.0);
    EXPECT_LT (picture.getLineBrightness (rowOf (hz * 1.5, rate), 1, 100, 400), 5.0);
    EXPECT_LT (picture.getLineBrightness (rowOf (hz / 1.5, rate), 1, 100, 400), 5.0);
}

TEST_F (HostPicture, IsRefusedIfTheEditorIsPartlyOffTheScreen)
{
    auto running = std::async (
        std::launch::async,
        [&] {
            return runHostOn (display.getName(), { "--seconds", "3", "--screenshot", scratch.getPath ("picture.png") });
        });

    while (running.wait_for (std::chrono::milliseconds (100)) != std::future_status::ready)
        display.moveWindow ("Orlo", { 1400, 100 });

    const auto result = running.get();
    EXPECT_NE (result.exitCode, 0);
    EXPECT_EQ (result.errors, "orlo-host: no picture can be taken of an editor that is not wholly on the screen\n");
    EXPECT_FALSE (scratch.getFile ("picture.png").exists());
}
} // namespace
} // namespace mk::orlo::test
