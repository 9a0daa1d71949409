# SPDX-License-Identifier: AGPL-3.0-or-later
"""The sounds of the manual's pictures, made from formulas with Python's own library alone.

    python3 scripts/manual_sounds.py FOLDER        writes every sound as FOLDER/NAME.wav

The same sounds come out at every call: noise is taken from random.Random with a fixed seed.
"""
import array
import math
import os
import random
import sys
import wave

RATE = 44100
TWO_PI = 2.0 * math.pi


class Sound:
    """One channel of samples from -1 to 1. Times and lengths are in seconds."""

    def __init__(self, seconds):
        self.samples = [0.0] * round(seconds * RATE)

    def add(self, start, length, value_at):
        """Adds value_at (seconds since start)."""
        first = round(start * RATE)
        for i in range(min(round(length * RATE), len(self.samples) - first)):
            self.samples[first + i] += value_at(i / RATE)

    def add_tone(self, start, length, hertz, level, rise=0.02, fall=0.05):
        """Adds a sine. hertz and level are numbers or functions of the time since start."""
        hertz_at = hertz if callable(hertz) else lambda t: hertz
        level_at = level if callable(level) else lambda t: level
        phase = 0.0

        def value_at(t):
            nonlocal phase
            phase += hertz_at(t) / RATE
            return level_at(t) * fade(t, length, rise, fall) * math.sin(TWO_PI * phase)

        self.add(start, length, value_at)

    def add_click(self, time, level=0.8):
        self.samples[round(time * RATE)] += level

    def add_noise(self, start, length, level_at, seed, low=None, high=None):
        """Adds white noise, or what band filters leave of it between two frequencies."""
        noise = random.Random(seed)
        count = round(length * RATE)
        values = [noise.uniform(-1.0, 1.0) for _ in range(count)]

        if low is not None:
            centre, width = math.sqrt(low * high), high - low
            for _ in range(2):
                values = resonate(values, centre, width)

        loudest = max(abs(value) for value in values)
        self.add(start, length, lambda t: level_at(t) / loudest * values[min(round(t * RATE), count - 1)])


def fade(t, length, rise, fall):
    """0 up to 1 and back to 0 over the length, with raised cosines for slopes."""
    def slope(x):
        return 0.5 - 0.5 * math.cos(math.pi * min(1.0, max(0.0, x)))

    return slope(t / rise) * slope((length - t) / fall)


def resonate(values, centre, bandwidth):
    """A resonator of two poles, with a gain of about 1 at its centre. Frequencies in hertz."""
    radius = math.exp(-math.pi * bandwidth / RATE)
    feedback = 2.0 * radius * math.cos(TWO_PI * centre / RATE)
    gain = (1.0 - radius) * math.sqrt(1.0 - 2.0 * radius * math.cos(2.0 * TWO_PI * centre / RATE) + radius * radius)
    before, last, result = 0.0, 0.0, []

    for value in values:
        before, last = last, gain * value + feedback * last - radius * radius * before
        result.append(last)

    return result


def study():
    """Everything that a setting changes: two bass tones a fourth apart, a note with vibrato, a glide, pairs of clicks
    25 ms apart, bursts of noise, and a quiet high tone."""
    sound = Sound(2.6)
    sound.add_tone(0.1, 2.4, 110.0, 0.16)
    sound.add_tone(0.1, 2.4, 146.83, 0.16)

    for n in range(1, 7):
        sound.add_tone(0.25, 2.1, lambda t, n=n: n * 440.0 * 2.0 ** (0.035 * math.sin(TWO_PI * 5.0 * t) * min(1.0, t)),
                       0.12 / n ** 1.2)

    sound.add_tone(0.5, 1.6, lambda t: 300.0 * 2.0 ** (5.3 * t / 1.6), 0.09)
    sound.add_tone(0.1, 2.4, 7000.0, 0.0004)

    for start in (0.2, 1.0, 1.8):
        sound.add_click(start)
        sound.add_click(start + 0.025)

    for number, start in enumerate((0.6, 1.4, 2.2)):
        sound.add_noise(start, 0.25, lambda t: 0.3 * math.exp(-t / 0.04), number, 8000.0, 12000.0)

    return [sound]


def hum():
    """Faint noise of a room, a few plucked notes, and the hum of the mains at 50 Hz, 60 dB below them."""
    sound = Sound(6.0)
    sound.add_noise(0.0, 6.0, lambda t: 0.0005, 1)

    for n, level in ((1, 0.0006), (2, 0.0009), (3, 0.0007), (5, 0.0004), (7, 0.0003)):
        sound.add_tone(0.0, 6.0, 50.0 * n, level, 0.001, 0.001)

    for start, root in ((1.0, 196.0), (2.0, 233.08), (3.0, 261.63)):
        for n in range(1, 9):
            sound.add_tone(start, 1.2, root * n, lambda t, n=n: 0.25 / n * math.exp(-2.0 * n ** 0.5 * t), 0.003, 0.2)

    return [sound]


def drum():
    """A tom-tom, struck twice: first with a head whose lugs disagree, then in tune."""
    sound = Sound(3.0)

    # The modes of a round membrane, in frequencies of the lowest.
    modes = ((1.0, 1.0), (1.594, 0.6), (2.136, 0.4), (2.296, 0.3), (2.653, 0.2), (2.918, 0.15))

    for start, split in ((0.1, 0.035), (1.6, 0.0)):
        for ratio, level in modes:
            parts = (1.0 - split, 1.0 + split) if split and ratio > 1.0 else (1.0,)
            for part in parts:
                sound.add_tone(start, 1.3,
                               lambda t, hertz=110.0 * ratio * part: hertz * (1.0 + 0.06 * math.exp(-t / 0.03)),
                               lambda t, ratio=ratio, loudest=0.3 * level / len(parts):
                                   loudest * math.exp(-3.2 * ratio * t),
                               0.002, 0.2)
        sound.add_noise(start, 0.05, lambda t: 0.25 * math.exp(-t / 0.01), 3)

    return [sound]


# The first three resonances of the mouth, in hertz, and the widths of them, for vowels of a low voice.
VOWELS = {"i": (280, 2250, 2900), "e": (400, 2050, 2600), "a": (730, 1200, 2500), "o": (450, 850, 2400),
          "u": (310, 780, 2250)}
WIDTHS = (70, 90, 130)


def voice(length, pitch_at, formants, level):
    """A voice: pulses of the given pitch in hertz, through resonators one after the other."""
    phase, pulses = 0.0, []

    for i in range(round(length * RATE)):
        phase += pitch_at(i / RATE) / RATE
        pulses.append(1.0 if phase >= 1.0 else 0.0)
        phase %= 1.0

    # A pulse of the vocal folds is soft: 12 dB less per octave.
    for hertz in (150.0, 150.0):
        smooth = math.exp(-TWO_PI * hertz / RATE)
        value, softer = 0.0, []
        for pulse in pulses:
            value = smooth * value + (1.0 - smooth) * pulse
            softer.append(value)
        pulses = softer

    # The mouth radiates high frequencies better: the difference of neighbours.
    mixed = [b - a for a, b in zip([0.0] + pulses, pulses)]

    for centre, width in zip(formants + (3500, 4500), WIDTHS + (180, 250)):
        gain = (centre / width) ** 0.5
        mixed = [0.3 * value + gain * more for value, more in zip(mixed, resonate(mixed, centre, width))]

    loudest = max(abs(value) for value in mixed)
    return lambda t: (level / loudest * fade(t, length, 0.04, 0.06)
                      * mixed[min(round(t * RATE), len(mixed) - 1)])


def vowels():
    """Five vowels, each sung on a pitch that falls a little."""
    sound = Sound(3.2)

    for number, name in enumerate("ieaou"):
        sound.add(0.1 + 0.62 * number, 0.55,
                  voice(0.55, lambda t: 130.0 - 20.0 * t, VOWELS[name], 0.4))

    return [sound]


def sibilance():
    """"sa", "sa": the first with a harsh "s", the second with a tame one."""
    sound = Sound(2.0)

    for start, level in ((0.1, 0.5), (1.05, 0.08)):
        sound.add_noise(start, 0.25, lambda t, level=level: level * fade(t, 0.25, 0.05, 0.05), 5, 5500.0, 9000.0)
        sound.add(start + 0.22, 0.5, voice(0.5, lambda t: 190.0 - 30.0 * t, VOWELS["a"], 0.35))

    return [sound]


def takes():
    """The same four notes twice, each in a file of its own: the second take is late on one note and flat on another."""
    notes = ((0.15, 220.0), (0.65, 246.94), (1.15, 277.18), (1.65, 329.63))
    files = []

    for late, flat in ((0.0, 0.0), (0.12, 45.0)):
        sound = Sound(2.4)
        for number, (start, hertz) in enumerate(notes):
            begin = start + (late if number == 2 else 0.0)
            pitch = hertz * 2.0 ** (-(flat if number == 3 else 0.0) / 1200.0)
            for n in range(1, 8):
                sound.add_tone(begin, 0.45, pitch * n, lambda t, n=n: 0.2 / n ** 1.2 * math.exp(-0.8 * n * t), 0.01,
                               0.08)
        files.append(sound)

    return files


def phase():
    """Noise: alone, together with itself 2 ms later, and in two channels of opposite polarity. Two channels."""
    noise = Sound(3.0)
    noise.add_noise(0.0, 3.0, lambda t: 0.2, 7)
    left, right = Sound(3.0), Sound(3.0)
    delay = round(0.002 * RATE)

    for i, value in enumerate(noise.samples):
        part = i * 3 // len(noise.samples)
        now = value * fade((i / RATE) % 1.0, 1.0, 0.05, 0.05)
        left.samples[i] = now
        right.samples[i] = (now, noise.samples[i - delay] * fade((i / RATE) % 1.0, 1.0, 0.05, 0.05), -now)[part]

    return [left, right]


def write(path, channels):
    """Writes the channels as one file of 16 bits."""
    samples = array.array("h", (0,)) * (len(channels) * len(channels[0].samples))

    for number, channel in enumerate(channels):
        samples[number::len(channels)] = array.array(
            "h", (max(-32767, min(32767, round(32767.0 * value))) for value in channel.samples))

    if sys.byteorder == "big":
        samples.byteswap()

    with wave.open(path, "wb") as file:
        file.setparams((len(channels), 2, RATE, 0, "NONE", "not compressed"))
        file.writeframes(samples.tobytes())


def write_all(folder):
    """Writes every sound into the folder, which is made if it is missing."""
    os.makedirs(folder, exist_ok=True)

    for make in (study, hum, drum, vowels, sibilance, phase):
        write(os.path.join(folder, f"{make.__name__}.wav"), make())

    # A slow picture shows more time than the study lasts.
    repeated = Sound(0.0)
    repeated.samples = study()[0].samples * 3
    write(os.path.join(folder, "study-repeated.wav"), [repeated])

    for name, sound in zip(("take-1", "take-2"), takes()):
        write(os.path.join(folder, f"{name}.wav"), [sound])


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    write_all(sys.argv[1])
