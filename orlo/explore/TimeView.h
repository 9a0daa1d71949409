// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** The range of time that is looked at in a sound that is known as a whole, in samples. It has a home, which is the range
    of the frozen picture; zooming and moving keep it within the sound. Any thread. */
class TimeView
{
public:
    /** The narrowest range that can be looked at, in seconds. */
    static constexpr double shortestSeconds = 0.005;

    TimeView() = default;

    /** A sound from start to end, and the home range, which may reach beyond the sound and is looked at first.
        @param sampleRate  hertz, more than 0
        @param homeLength  more than 0 */
    TimeView (double soundStart, double soundEnd, double sampleRate, double homeStart, double homeLength) noexcept;

    [[nodiscard]] double getStart() const noexcept { return start; }
    [[nodiscard]] double getLength() const noexcept { return length; }
    [[nodiscard]] double getEnd() const noexcept { return start + length; }
    [[nodiscard]] double getSoundStart() const noexcept { return soundStart; }
    [[nodiscard]] double getSoundEnd() const noexcept { return soundEnd; }
    [[nodiscard]] double getSampleRate() const noexcept { return sampleRate; }

    /** The sample at a share 0 .. 1 of the range. */
    [[nodiscard]] double getSampleAt (double share) const noexcept { return start + share * length; }

    /** Where a sample lies, as a share of the range: 0 .. 1 inside. */
    [[nodiscard]] double getShareOf (double sample) const noexcept { return (sample - start) / length; }

    /** Seconds before the end of the sound: negative within it. */
    [[nodiscard]] double getSecondsAt (double sample) const noexcept { return (sample - soundEnd) / sampleRate; }

    [[nodiscard]] double getHomeStart() const noexcept { return homeStart; }
    [[nodiscard]] double getHomeLength() const noexcept { return homeLength; }
    [[nodiscard]] bool isHome() const noexcept;

    /** In samples. */
    [[nodiscard]] double getShortestLength() const noexcept { return shortestSeconds * sampleRate; }
    [[nodiscard]] double getLongestLength() const noexcept;

    //==============================================================================
    /** Makes the range that many times as long, with the sample at that share of the view, as far as the limits allow.
        @param factor  below 1 zooms in; not a positive number does nothing */
    void zoom (double factor, double sample, double share) noexcept;

    /** Moves by some samples, to the right if positive. */
    void moveBy (double numSamples) noexcept;

    /** The nearest range that is possible. */
    void setRange (double newStart, double newLength) noexcept;

    /** All of the sound. */
    void showAll() noexcept;

    void goToStart() noexcept;
    void goToEnd() noexcept;
    void goHome() noexcept;

private:
    double soundStart = 0.0, soundEnd = 1.0, sampleRate = 1.0;
    double homeStart = 0.0, homeLength = 1.0;
    double start = 0.0, length = 1.0;
};

} // namespace mk::orlo
