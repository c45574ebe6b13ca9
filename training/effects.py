# SPDX-License-Identifier: Apache-2.0
"""What happens to a voice between the mouth and the microphone: rooms, noises, codecs, levels.

Sounds are float arrays in which full scale is 1.
"""

import numpy as np
from scipy.signal import butter, fftconvolve, lfilter, resample_poly

import recordings
from settings import RATE

SOUND_SPEED = 343


def loudness(sound):
    """The effective value of the loud parts, so that pauses do not count."""
    blocks = sound[:len(sound) // 320 * 320].reshape(-1, 320)
    energy = np.sort((blocks ** 2).mean(axis=1))
    return float(np.sqrt(energy[len(energy) // 2:].mean() + 1e-12)) if len(energy) else 1e-6


def room(random):
    """An impulse response: the mirror images of the source up to the second order, and a decaying tail."""
    size = random.uniform([2, 2, 2.2], [7, 6, 3.5])
    microphone = random.uniform(0.2, 0.8, 3) * size
    source = random.uniform(0.1, 0.9, 3) * size
    reflection = random.uniform(0.3, 0.9)
    decay = random.uniform(0.12, 0.7)  # seconds until -60 dB
    response = np.zeros(int(RATE * decay))
    direct = max(np.linalg.norm(source - microphone), 0.2)
    for shift in np.ndindex(5, 5, 5):
        shift = np.array(shift) - 2
        order = np.abs(shift).sum()
        if order <= 2:
            image = np.where(shift % 2 == 0, shift * size + source, (shift + 1) * size - source)
            distance = max(np.linalg.norm(image - microphone), 0.2)
            place = int((distance - direct) / SOUND_SPEED * RATE)
            if 0 <= place < len(response):
                response[place] += direct / distance * reflection ** order * random.choice([1, 0.9])
    time = np.arange(len(response)) / RATE
    tail = random.standard_normal(len(response)) * 10 ** (-3 * time / decay)
    start = int(random.uniform(0.005, 0.02) * RATE)
    tail[:start] = 0
    response += tail * random.uniform(0.005, 0.06) * direct
    return response


def in_room(sound, response):
    return fftconvolve(sound, response)[:len(sound)]


def colored(random, count, slope):
    """Noise whose power falls by slope * 3 dB per octave (1 is pink, 2 is brown)."""
    spectrum = np.fft.rfft(random.standard_normal(count))
    frequency = np.arange(len(spectrum)) + 20 * count / RATE
    return np.fft.irfft(spectrum / frequency ** (slope / 2), count)


def kitchen(random, count):
    """A fan with its hum, running water, and clattering dishes."""
    time = np.arange(count) / RATE
    fan = colored(random, count, random.uniform(1, 2))
    fan /= fan.std()
    hum = random.uniform(45, 130)
    for harmonic in range(1, 6):
        fan += random.uniform(0, 1.2) / harmonic * np.sin(2 * np.pi * hum * harmonic * time + random.uniform(0, 6))
    low = random.uniform(400, 2000)
    water = lfilter(*butter(2, [low, random.uniform(low + 500, 7500)], "band", fs=RATE), random.standard_normal(count))
    mix = fan * random.uniform(0, 1) + water / water.std() * random.uniform(0, 1)
    for _ in range(random.poisson(count / RATE * random.uniform(0, 2))):
        mix += clatter(random, count) * random.uniform(1, 8)
    return mix


def clatter(random, count):
    """One blow on a dish or a pot."""
    time = np.arange(count) / RATE
    sound = np.zeros(count)
    for _ in range(random.integers(2, 7)):
        sound += np.sin(2 * np.pi * random.uniform(600, 7000) * time) * np.exp(-time * random.uniform(10, 120))
    return np.roll(sound, random.integers(count))


def piece(random, recording, count):
    """A random part of a long recording, without long pauses at its ends."""
    start = random.integers(0, len(recording) - count)
    return recording[start:start + count] / 32768.0


def babble(random, count, half, talkers=8):
    voices = [piece(random, recordings.talk(half), count) for _ in range(talkers)]
    return sum(voice / (loudness(voice) + 1e-4) for voice in voices)


def noise(random, count, half, kind=None):
    kind = kind or random.choice(["white", "pink", "brown", "kitchen", "babble", "music", "talk"],
                                 p=[0.05, 0.2, 0.1, 0.25, 0.2, 0.12, 0.08])
    if kind in ("white", "pink", "brown"):
        return colored(random, count, {"white": 0, "pink": 1, "brown": 2}[kind])
    if kind == "kitchen":
        return kitchen(random, count)
    if kind == "babble":
        return babble(random, count, half, 8 if half == "eval" else random.integers(3, 10))
    if kind == "music":
        return piece(random, recordings.music(half), count)
    return piece(random, recordings.talk(half), count)


def add_noise(sound, reference, other, ratio_db):
    """The other sound, ratio_db below the reference."""
    return sound + other * loudness(reference) / (loudness(other) + 1e-9) * 10 ** (-ratio_db / 20)


def faster(sound, factor):
    """Changes speed, pitch, and formants together, as a smaller or larger head does."""
    return resample_poly(sound, 100, int(round(100 * factor)))


def telephone(random, sound):
    """Narrow band and eight bits, as a cheap radio microphone sounds."""
    narrow = resample_poly(sound, 1, 2)
    if random.random() < 0.5:
        mu = 255
        code = np.round(np.sign(narrow) * np.log1p(mu * np.minimum(np.abs(narrow), 1)) / np.log1p(mu) * 127) / 127
        narrow = np.sign(code) * np.expm1(np.abs(code) * np.log1p(mu)) / mu
    return resample_poly(narrow, 2, 1)[:len(sound)]


def tilted(random, sound):
    """The coloring of a microphone: a shelf and a limited band."""
    sound = lfilter([1, random.uniform(-0.5, 0.5)], [1], sound)
    if random.random() < 0.3:
        sound = lfilter(*butter(2, random.uniform(3000, 7500), fs=RATE), sound)
    if random.random() < 0.3:
        sound = lfilter(*butter(1, random.uniform(60, 300), "high", fs=RATE), sound)
    return sound


def at_level(random, sound, low_db=-42, high_db=-3):
    """A random peak level; a loud one may clip."""
    peak = np.abs(sound).max() + 1e-9
    sound = sound / peak * 10 ** (random.uniform(low_db, high_db) / 20)
    if random.random() < 0.05:
        sound = sound * random.uniform(1, 6)
    return np.clip(sound * 32768, -32768, 32767).astype(np.int16)
