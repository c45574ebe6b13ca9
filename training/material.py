# SPDX-License-Identifier: Apache-2.0
"""Makes the material: files of embeddings and labels, in parts that can be made side by side and continued later.

usage: material.py KIND HALF [reversed]
With "reversed", a second process makes the last parts first.
KIND: takes (with a wake word), bench (the same in fixed conditions), phrases (synthesized, without), talk (human),
music, noise
"""

import os
import sys

import numpy as np

import effects
import recordings
import takes
from settings import BENCH, MINUTES, RATE, SEED, TAKES, WORDS, WORK

KINDS = ("takes", "phrases", "talk", "music", "noise")
CONDITIONS = ("clean", "pink", "kitchen", "babble", "music")
TAKES_PER_PART = 100
SECONDS_PER_PIECE = 15
PIECES_PER_PART = 40


def _random(kind, half, number):
    return np.random.default_rng([SEED, KINDS.index(kind), half == "eval", number])


def _takes(half, number):
    label = number % len(WORDS) + 1
    return takes.positive(_random("takes", half, number), half, WORDS[label - 1], label)


def bench(number):
    """The word and the condition of this take of the evaluation."""
    return number % len(WORDS), number // len(WORDS) % len(CONDITIONS)


def _bench(half, number):
    word, condition = bench(number)
    random = np.random.default_rng([SEED, len(KINDS), half == "eval", number])
    return takes.measured(random, half, WORDS[word], word + 1, CONDITIONS[condition])


def _phrases(half, number):
    random = _random("phrases", half, number)
    parts = []
    while sum(map(len, parts)) < SECONDS_PER_PIECE * RATE:
        parts += [takes.phrase(random, half), np.zeros(int(random.uniform(0, 0.5) * RATE))]
    return takes.negative(random, half, np.concatenate(parts)[:SECONDS_PER_PIECE * RATE])


def _recorded(kind, half, number):
    """The pieces cover the recordings evenly, whatever their number is."""
    source = getattr(recordings, kind)(half)
    count = SECONDS_PER_PIECE * RATE
    pieces = len(source) // count
    place = number * 377 % pieces if pieces % 377 else number % pieces
    piece = source[place * count:(place + 1) * count] / 32768.0
    return takes.negative(_random(kind, half, number), half, piece, 0.5)


def _noise(half, number):
    random = _random("noise", half, number)
    kind = random.choice(["white", "pink", "brown", "kitchen", "babble"])
    return takes.negative(random, half, effects.noise(random, SECONDS_PER_PIECE * RATE, half, kind), 0.2)


def make(kind, half, number):
    if kind in ("talk", "music"):
        return _recorded(kind, half, number)
    return {"takes": _takes, "bench": _bench, "phrases": _phrases, "noise": _noise}[kind](half, number)


def count(kind, half):
    if kind == "takes":
        return TAKES[half] * len(WORDS)
    if kind == "bench":
        return BENCH * len(WORDS) * len(CONDITIONS)
    return MINUTES[kind, half] * 60 // SECONDS_PER_PIECE


def parts(kind, half):
    """Pairs of a file and the numbers of its takes."""
    size = TAKES_PER_PART if kind in ("takes", "bench") else PIECES_PER_PART
    total = count(kind, half)
    for first in range(0, total, size):
        path = os.path.join(WORK, "features", f"{kind}-{half}-{first:06}.npz")
        yield path, range(first, min(first + size, total))


def build(kind, half, backward=False):
    os.makedirs(os.path.join(WORK, "features"), exist_ok=True)
    for path, numbers in sorted(parts(kind, half), key=lambda part: part[0], reverse=backward):
        if os.path.exists(path):
            continue
        made = [make(kind, half, number) for number in numbers]
        np.savez(path + ".new.npz", rows=np.concatenate([rows for rows, _ in made]),
                 labels=np.concatenate([found for _, found in made]), lengths=[len(found) for _, found in made])
        os.rename(path + ".new.npz", path)
        print(os.path.basename(path), flush=True)


if __name__ == "__main__":
    build(sys.argv[1], sys.argv[2], "reversed" in sys.argv)
