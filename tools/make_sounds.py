#!/usr/bin/env python3
"""Synthesises the console's built-in sounds.

Usage: make_sounds.py [--check] [FOLDER]

Writes the WAV files into FOLDER, by default the folder that the sound library is built from. With --check it writes
nothing and fails when a file there is not what it would write.
"""
import argparse
import io
import math
import pathlib
import struct
import sys
import wave

RATE = 22050
PEAK = 0.8 * 32767
DEFAULT_FOLDER = pathlib.Path(__file__).resolve().parent.parent / "src/common/SoundLib/sounds"


def silence(seconds):
    return [0.0] * round(seconds * RATE)


def tone(frequency, seconds, decay, harmonics=(1.0,), end_frequency=None):
    """A struck tone: a sum of harmonics that dies away; it may glide to another frequency."""
    count = round(seconds * RATE)
    samples = []
    phase = 0.0
    for i in range(count):
        part = i / count
        now = frequency + ((end_frequency or frequency) - frequency) * part
        phase += 2 * math.pi * now / RATE
        level = math.exp(-decay * i / RATE) * edge(i, count)
        samples.append(level * sum(a * math.sin((n + 1) * phase) for n, a in enumerate(harmonics)))
    return samples


def noise(seconds, decay, seed):
    """A short rush of noise. The generator is written out, so that every machine gets the same bytes."""
    count = round(seconds * RATE)
    samples = []
    state = seed
    smooth = 0.0
    for i in range(count):
        state = (state * 1103515245 + 12345) % 2**31
        smooth += 0.5 * (state / 2**30 - 1.0 - smooth)
        samples.append(smooth * math.exp(-decay * i / RATE) * edge(i, count))
    return samples


def edge(i, count):
    """Fades both ends over a millisecond, so that no speaker pops."""
    ramp = RATE / 1000
    return min(1.0, i / ramp, (count - 1 - i) / ramp)


def mix(*parts):
    return [sum(values) for values in zip(*(part + [0.0] * (max(map(len, parts)) - len(part)) for part in parts))]


SOFT = (1.0, 0.3, 0.1)
BRIGHT = (1.0, 0.5, 0.35, 0.2)

SOUNDS = {
    "ButtonPress": mix(tone(1900, 0.030, 140), noise(0.012, 500, 1)),
    "ButtonRelease": mix(tone(1400, 0.025, 180), noise(0.008, 600, 2)),
    "Error": tone(330, 0.11, 9, BRIGHT) + silence(0.03) + tone(247, 0.16, 9, BRIGHT),
    "Screenshot": noise(0.035, 90, 3) + silence(0.045) + noise(0.06, 60, 4),
    "AlarmInformation": tone(880, 0.30, 11, SOFT),
    "AlarmWarning": tone(784, 0.15, 7, SOFT) + silence(0.05) + tone(988, 0.25, 7, SOFT),
    "AlarmCritical": (tone(1047, 0.12, 3, BRIGHT) + silence(0.04)) * 2 + tone(1319, 0.20, 3, BRIGHT),
    "ViewChange": tone(520, 0.09, 30, SOFT, end_frequency=780),
}
LOUDNESS = {"ButtonPress": 0.6, "ButtonRelease": 0.35, "ViewChange": 0.5, "Screenshot": 0.7}


def wav_bytes(samples, loudness):
    scale = PEAK * loudness / max(map(abs, samples))
    file = io.BytesIO()
    with wave.open(file, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(struct.pack(f"<{len(samples)}h", *(round(scale * s) for s in samples)))
    return file.getvalue()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare instead of writing")
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=DEFAULT_FOLDER)
    arguments = parser.parse_args()
    stale = []
    for name, samples in SOUNDS.items():
        path = arguments.folder / f"{name}.wav"
        content = wav_bytes(samples, LOUDNESS.get(name, 1.0))
        if not arguments.check:
            path.write_bytes(content)
        elif not path.is_file() or path.read_bytes() != content:
            stale.append(path.name)
    if stale:
        print("not what make_sounds.py writes:", ", ".join(stale), file=sys.stderr)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
