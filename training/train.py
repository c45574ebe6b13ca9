# SPDX-License-Identifier: Apache-2.0
"""Trains the head with the training half.

usage: train.py [STEPS]
"""

import sys

import numpy as np

import weights
from dataset import Dataset
from network import SIZES, Network
from settings import SEED, WORDS

ROUNDS = 4  # between two rounds, the network's worst mistakes become more frequent
POSITIVES, NEGATIVES = 64, 192  # of one batch
HARD = 0.5  # share of the negatives that come from the worst mistakes
WORST = 3000
RATE = 1e-3
DROP = 0.2
SMOOTH = 0.01


def sampled(random, pool, count):
    return pool[random.integers(0, len(pool), count)]


def slope_of(targets):
    """Cross entropy of each wake word on its own. Missed words and false detections count the same."""
    def slope(scores):
        return ((1 / (1 + np.exp(-np.clip(scores, -30, 30))) - targets) / len(scores)).astype(np.float32)
    return slope


def targets_of(found):
    return np.stack([found == word + 1 for word in range(len(WORDS))], axis=1) * (1 - 2 * SMOOTH) + SMOOTH


def train(steps):
    random = np.random.default_rng([SEED, 99])
    data = Dataset("train", "learning")
    words = [np.flatnonzero(data.labels == word + 1) for word in range(len(WORDS))]
    others = np.flatnonzero(data.labels == 0)
    print("windows:", *map(len, words), len(others), flush=True)
    mean, deviation = data.rows.mean(axis=0), data.rows.std(axis=0) + 1e-3
    data.rows = (data.rows - mean) / deviation
    network, hard = Network(random), others
    for step in range(steps):
        if step and step % (steps // ROUNDS) == 0:
            worst = data.scores(network).max(axis=1)[others]
            hard = others[np.argsort(-worst, kind="stable")[:WORST]]
            print("step", step, "negatives above 0:", int((worst > 0).sum()), flush=True)
        chosen = np.concatenate([sampled(random, pool, POSITIVES // len(WORDS)) for pool in words]
                                + [sampled(random, hard, int(NEGATIVES * HARD)),
                                   sampled(random, others, NEGATIVES - int(NEGATIVES * HARD))])
        inputs = data.windows(chosen)
        inputs += 0.1 * random.standard_normal(inputs.shape, dtype=np.float32)
        keep = [(random.random((len(chosen), size)) > DROP) / (1 - DROP) for size in SIZES[1:-1]]
        gradients = network.gradients(inputs, slope_of(targets_of(data.labels[chosen])),
                                      [part.astype(np.float32) for part in keep])
        network.step(gradients, RATE * 0.5 * (1 + np.cos(np.pi * step / steps)) + 1e-6)
    tile = SIZES[0] // len(mean)
    network.fold(np.tile(mean, tile), np.tile(deviation, tile))
    return network


if __name__ == "__main__":
    weights.save_raw(train(int(sys.argv[1]) if len(sys.argv) > 1 else 1500))
