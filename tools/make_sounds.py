#!/usr/bin/env python3
"""Makes the sample sounds of samples/sounds/ from fixed seeds: wind, water, birds and a bell.

Needs python3-numpy. The sounds are kept in the tree; run this only to change them:
    tools/make_sounds.py samples/sounds

Between them they have both channel counts, both widths and both rates that a soundtrack usually meets, and
each stays under 200,000 bytes.
"""

import sys
import wave
from pathlib import Path

import numpy as np


def band_noise(seconds, rate, low, high, seed):
    """Noise between two frequencies in Hz, with soft edges; its highest peak is 1."""
    count = round(seconds * rate)
    spectrum = np.fft.rfft(np.random.default_rng(seed).standard_normal(count))
    frequencies = np.maximum(np.fft.rfftfreq(count, 1 / rate), 1e-3)
    spectrum *= 1 / (1 + (low / frequencies) ** 4) / (1 + (frequencies / high) ** 4)
    noise = np.fft.irfft(spectrum, count)
    return noise / np.abs(noise).max()


def faded(samples, rate, rise=0.15, fall=0.4):
    """Starts and ends in silence; times in seconds."""
    time = np.arange(samples.shape[-1]) / rate
    return samples * np.clip(time / rise, 0, 1) * np.clip((time[-1] - time) / fall, 0, 1)


def swell(seconds, rate, seed, slowest=0.3, fastest=1.5, floor=0.35):
    """A slow wandering between floor and 1."""
    wander = band_noise(seconds, rate, slowest, fastest, seed)
    return floor + (1 - floor) * (wander - wander.min()) / (wander.max() - wander.min())


def wind():
    """4.2 s, mono, 22050 Hz, 16 bits: gusts."""
    rate, seconds = 22050, 4.2
    low = band_noise(seconds, rate, 90, 420, 11) * swell(seconds, rate, 12)
    whistle = band_noise(seconds, rate, 500, 900, 13) * swell(seconds, rate, 14, floor=0.0) ** 2
    return rate, 2, [faded(0.8 * low + 0.25 * whistle, rate, 0.5, 0.8)]


def water():
    """2.1 s, stereo, 44100 Hz, 8 bits: a brook, its two banks a little apart."""
    rate, seconds = 44100, 2.1
    def bank(seed):
        splash = band_noise(seconds, rate, 700, 4500, seed) * swell(seconds, rate, seed + 1, 3, 15, 0.4)
        return faded(splash + 0.5 * band_noise(seconds, rate, 200, 700, seed + 2), rate, 0.2, 0.3)
    return rate, 1, [bank(21), bank(31)]


def chirp(rate, seconds, start, end):
    time = np.arange(round(seconds * rate)) / rate
    frequency = start + (end - start) * (time / seconds)
    tone = np.sin(2 * np.pi * np.cumsum(frequency) / rate)
    return tone * np.sin(np.pi * time / seconds) ** 2


def birds():
    """2.2 s, stereo, 22050 Hz, 16 bits: two birds that answer each other from left and right."""
    rate, seconds = 22050, 2.2
    ears = np.zeros((2, round(seconds * rate)))
    calls = ((0.10, 0, 3200, 4300), (0.28, 0, 3600, 4600), (0.46, 0, 4400, 3100), (0.85, 1, 2600, 3300),
             (1.02, 1, 3300, 2500), (1.40, 0, 3300, 4500), (1.56, 0, 3900, 4700), (1.78, 1, 2500, 3400))
    for at, side, start, end in calls:
        call = chirp(rate, 0.14, start, end)
        first = round(at * rate)
        ears[side, first:first + call.size] += call
        ears[1 - side, first:first + call.size] += 0.3 * call
    return rate, 2, [ears[0], ears[1]]


def bell():
    """2.1 s, mono, 44100 Hz, 16 bits: one stroke.

    The partials of a minor-third church bell relative to its strike note: hum 0.5, prime 1, tierce 1.2, quint
    1.5, nominal 2, then two more above; the higher ones die sooner.
    """
    rate, seconds = 44100, 2.1
    time = np.arange(round(seconds * rate)) / rate
    partials = ((0.5, 0.55, 0.9), (1.0, 1.0, 0.7), (1.2, 0.8, 0.55), (1.5, 0.35, 0.4), (2.0, 0.7, 0.3),
                (2.67, 0.3, 0.2), (4.0, 0.2, 0.12))
    tone = sum(level * np.exp(-time / decay) * np.sin(2 * np.pi * 440 * ratio * time)
               for ratio, level, decay in partials)
    return rate, 2, [faded(tone, rate, 0.004, 0.3)]


def write(path, rate, width, channels):
    """Normalised to -3 dB and interleaved; 8-bit samples are unsigned, 16-bit ones signed."""
    mix = np.stack(channels, axis=-1)
    mix *= 10 ** (-3 / 20) / np.abs(mix).max()
    if width == 1:
        data = np.round(128 + 127 * mix).astype(np.uint8)
    else:
        data = np.round(32767 * mix).astype("<i2")
    with wave.open(str(path), "wb") as file:
        file.setnchannels(len(channels))
        file.setsampwidth(width)
        file.setframerate(rate)
        file.writeframes(data.tobytes())


def main():
    directory = Path(sys.argv[1] if len(sys.argv) > 1 else "samples/sounds")
    directory.mkdir(parents=True, exist_ok=True)
    for make in (wind, water, birds, bell):
        write(directory / f"{make.__name__}.wav", *make())


if __name__ == "__main__":
    main()
