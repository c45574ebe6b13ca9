# SPDX-License-Identifier: Apache-2.0
"""Selects the thresholds with material that the network did not learn from, and writes the head's file.

A threshold is the lowest score with at most WAKES false detections per hour in talk, music, and noise.
"""

import numpy as np

import weights
from dataset import Dataset
from settings import SECONDS_PER_STEP, WINDOW, WORDS

WAKES = 0.25
LEAST = 1.0
MARGIN = 0.5  # because the material is short
REST = 25  # steps after a detection in which another one does not count


def hours(data):
    return (np.diff(data.starts) - WINDOW + 1).clip(0).sum() * SECONDS_PER_STEP / 3600


def wakes(data, scores, threshold):
    """How often the word is detected, once for each time."""
    count, last = 0, -REST
    for row in np.flatnonzero(scores >= threshold):
        count += row - last > REST
        last = row
    return count


def select(data, scores):
    candidates = np.arange(LEAST, 12, 0.1)
    for threshold in candidates:
        if wakes(data, scores, threshold) <= WAKES * hours(data):
            return threshold + MARGIN
    return candidates[-1]


if __name__ == "__main__":
    network = weights.load_raw()
    other = Dataset("train", "thresholds", ("talk", "music", "noise"))
    takes = Dataset("train", "thresholds", ("takes",))
    heard, best = other.scores(network), takes.best(takes.scores(network))
    spoken = np.maximum.reduceat(takes.labels, takes.starts[:-1])
    lowest = [select(other, heard[:, word]) for word in range(len(WORDS))]
    clear = [max(np.percentile(best[spoken == word + 1, word], 80), lowest[word] + 1) for word in range(len(WORDS))]
    weights.save(network, lowest, clear)
    print("hours", round(hours(other), 2), "thresholds", lowest, "clear", clear)
