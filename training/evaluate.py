# SPDX-License-Identifier: Apache-2.0
"""Measures the head with voices and recordings that the training never used, and prints the result as JSON."""

import json

import numpy as np

import material
import weights
from dataset import Dataset
from settings import WORDS
from thresholds import hours, wakes

THRESHOLDS = (0, 1, 2, 3, 4, 5, 6)


def missed(network, thresholds):
    """For each word and condition: the number of takes and, for each threshold, how many are missed."""
    data = Dataset("eval", kinds=("bench",))
    best = data.best(data.scores(network))
    found = {}
    for number, scores in enumerate(best):
        word, condition = material.bench(number)
        cell = found.setdefault(WORDS[word], {}).setdefault(material.CONDITIONS[condition], [0, [0] * len(thresholds)])
        cell[0] += 1
        for place, threshold in enumerate(thresholds):
            level = threshold if np.isscalar(threshold) else threshold[word]
            cell[1][place] += bool(scores[word] < level)
    return found


def random_takes(network, thresholds):
    """The same with the conditions of the training: rooms, 2 to 30 dB of noise, other talk, codecs, levels."""
    data = Dataset("eval", kinds=("takes",))
    best = data.best(data.scores(network))
    spoken = np.maximum.reduceat(data.labels, data.starts[:-1])
    return {word: [int((spoken == place + 1).sum())] + [
        int((best[spoken == place + 1, place] < (t if np.isscalar(t) else t[place])).sum()) for t in thresholds]
        for place, word in enumerate(WORDS)}


def false(network, thresholds):
    """For each kind of sound: its hours and, for each word and threshold, the detections."""
    found = {}
    for kind in ("talk", "phrases", "music", "noise"):
        data = Dataset("eval", kinds=(kind,))
        if not len(data.rows):
            continue
        scores = data.scores(network)
        found[kind] = {"hours": round(float(hours(data)), 2)}
        for place, word in enumerate(WORDS):
            found[kind][word] = [int(wakes(data, scores[:, place], t if np.isscalar(t) else t[place]))
                                 for t in thresholds]
    return found


if __name__ == "__main__":
    head = weights.load_raw()
    chosen = weights.thresholds()
    levels = THRESHOLDS + (chosen,)
    print(json.dumps({"thresholds": list(THRESHOLDS) + [chosen], "missed": missed(head, levels),
                      "missed in random conditions": random_takes(head, levels),
                      "false detections": false(head, levels)}, indent=1))
