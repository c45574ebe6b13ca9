# SPDX-License-Identifier: Apache-2.0
"""Takes: short recordings with or without a wake word, with a label for every window."""

import numpy as np

import effects
import frontend
import phrases
import recordings
import voices
from settings import RATE, STEP, WINDOW

UNUSED, NONE = -1, 0  # labels of windows; a wake word's label is its place in WORDS, counted from 1
AFTER = 0.40  # seconds after the end of the word in which a window has the word's label
PARTIAL = 0.55  # share of the word after which a window no longer counts as one without it


def spoken(random, half, text_of, shares=(0.45, 0.28, 0.17, 0.10)):
    """One synthesized sound. text_of(language) is what to say; shares: of the synthesizers."""
    source = random.choice(["espeak", "foreign", "flite", "festival"], p=shares)
    if source == "festival":
        return bank_sound(random, half, text_of)
    if source == "flite":
        voice = random.choice(voices.FLITE[half])
        pitch = int(random.uniform(80, 220)) if random.random() < 0.6 else None
        return voices.flite(voice, text_of("en"), round(random.uniform(0.75, 1.4), 2), pitch) / 32768
    language = random.choice(voices.ACCENTS if source == "espeak" else voices.LANGUAGES)
    variant = random.choice(voices.ESPEAK[half])
    voice = f"{language}+{variant}" if variant else language
    return voices.espeak(voice, text_of(language), random.integers(110, 240), random.integers(15, 90)) / 32768


_bank = {}


def bank_sound(random, half, text_of):
    """One sound of festival's voices, which speak many texts in one run."""
    language, voice = voices.FESTIVAL[half][random.integers(len(voices.FESTIVAL[half]))]
    text = text_of(language)
    if (voice, text) not in _bank:
        stretches = [0.75, 0.9, 1.05, 1.25]
        _bank[voice, text] = voices.festival(voice, [(text, stretch) for stretch in stretches])
    sounds = _bank[voice, text]
    return sounds[random.integers(len(sounds))] / 32768


def trimmed(sound, below_db=-38):
    """Without the silence before and after."""
    loud = np.flatnonzero(np.abs(sound) > np.abs(sound).max() * 10 ** (below_db / 20))
    return sound[loud[0]:loud[-1] + 1] if len(loud) else sound


def wake_word(random, half, word, share_changed=0.5):
    def text(language):
        return random.choice(phrases.spellings(language, word))
    sound = trimmed(spoken(random, half, text))
    if random.random() < share_changed:
        sound = effects.faster(sound, random.uniform(0.84, 1.2))
    return sound / effects.loudness(sound)


def surroundings(random, half, seconds):
    """What is heard before or after the word: nothing, or other talk, as loud as the word."""
    count = int(seconds * RATE)
    if random.random() < 0.5:
        return np.zeros(count)
    talk = effects.piece(random, recordings.talk(half), count)
    return talk / (effects.loudness(talk) + 0.003) * random.uniform(0.3, 1.2)


def degraded(random, half, dry, wet_reference):
    """The way through a room and a microphone."""
    sound = effects.in_room(dry, effects.room(random)) if random.random() < 0.75 else dry
    if random.random() < 0.8:
        other = effects.noise(random, len(sound), half)
        sound = effects.add_noise(sound, wet_reference, other, random.uniform(2, 30))
    sound = effects.tilted(random, sound)
    return effects.telephone(random, sound) if random.random() < 0.1 else sound


def positive(random, half, word, label):
    """Embeddings and labels of a take that contains the word once."""
    voice = wake_word(random, half, word)
    lead = surroundings(random, half, random.uniform(1.9, 2.4))
    gap = np.zeros(int(random.uniform(0, 0.4) * RATE))
    tail = surroundings(random, half, 0.5)
    dry = np.concatenate([lead, gap, voice, np.zeros(int(random.uniform(0, 0.25) * RATE)), tail])
    start = len(lead) + len(gap)
    sound = effects.at_level(random, degraded(random, half, dry, voice))
    if random.random() < 0.25:
        sound[:max(0, start - int(random.uniform(0.25, 1.2) * RATE))] = 0  # the level gate opened here
    rows = frontend.embeddings(frontend.dither(sound, random))
    return rows, labels(rows, len(sound), start, start + len(voice), label)


def measured(random, half, word, label, condition):
    """A take for the evaluation: alone in a quiet place, or with noise 10 dB below the word."""
    voice = wake_word(random, half, word, 0)
    start, after = 2 * RATE, RATE // 2
    dry = np.concatenate([np.zeros(start), voice, np.zeros(after)])
    if condition != "clean":
        dry = effects.add_noise(dry, voice, effects.noise(random, len(dry), half, condition), 10)
    sound = effects.at_level(random, dry, -12, -6)
    rows = frontend.embeddings(frontend.dither(sound, random))
    return rows, labels(rows, len(sound), start, start + len(voice), label)


def ends(rows, samples):
    """The sample at which each row's window ends."""
    steps = (samples - frontend.OVERLAP) // STEP
    return (steps - (len(rows) - 1 - np.arange(len(rows)))) * STEP + frontend.OVERLAP


def labels(rows, samples, start, end, label):
    end_of = ends(rows, samples)
    found = np.full(len(rows), UNUSED, np.int8)
    found[end_of < start + PARTIAL * (end - start)] = NONE
    found[(end_of >= end - 0.03 * RATE) & (end_of <= end + AFTER * RATE)] = label
    found[:WINDOW - 1] = UNUSED
    return found


def negative(random, half, dry, share_noisy=0.6):
    """Embeddings and labels of a sound without a wake word."""
    sound = degraded(random, half, dry, dry) if random.random() < share_noisy else dry
    sound = effects.at_level(random, sound)
    if random.random() < 0.3:
        sound[:int(random.uniform(0, 3) * RATE)] = 0
    rows = frontend.embeddings(frontend.dither(sound, random))
    found = np.full(len(rows), NONE, np.int8)
    found[:WINDOW - 1] = UNUSED
    return rows, found


def phrase(random, half):
    """A synthesized near miss, kitchen sentence, or quotation."""
    kind = random.random()

    def text(language):
        if not language.startswith("en") and kind >= 0.4:
            return random.choice(phrases.quotations(language))
        said = random.choice(phrases.NEAR_MISSES if kind < 0.5 else phrases.KITCHEN)
        return f"hey {said}" if kind >= 0.5 and random.random() < 0.6 else said
    if kind > 0.8:
        texts = phrases.quotations("en")
        sound = voices.espeak(f"en-us+{random.choice(voices.ESPEAK[half][1:])}", random.choice(texts),
                              random.integers(120, 220), random.integers(15, 90)) / 32768
    else:
        sound = spoken(random, half, text, (0.5, 0.3, 0.2, 0))  # festival starts too slowly for so many texts
    if random.random() < 0.4:
        sound = effects.faster(sound, random.uniform(0.84, 1.2))
    return sound / (effects.loudness(sound) + 1e-4)
