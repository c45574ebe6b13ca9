# SPDX-License-Identifier: Apache-2.0
"""The material, loaded into memory.

The training half has two shares: every fifth part only selects the thresholds, and the network learns from the others.
"""

import os

import numpy as np

import material
from settings import EMBEDDING, WINDOW


def _files(half, share, kinds):
    for kind in kinds:
        for place, (path, _) in enumerate(material.parts(kind, half)):
            if share == "all" or (place % 5 == 4) == (share == "thresholds"):
                yield kind, path


class Dataset:
    """half: train or eval; share: learning, thresholds, or all."""

    def __init__(self, half, share="all", kinds=material.KINDS):
        files = [(kind, path) for kind, path in _files(half, share, kinds) if os.path.exists(path)]
        loaded = [np.load(path) for _, path in files]
        self.rows = np.concatenate([np.zeros((0, EMBEDDING), np.float32)] + [part["rows"] for part in loaded])
        self.labels = np.concatenate([np.zeros(0, np.int8)] + [part["labels"] for part in loaded])
        lengths = np.concatenate([[0]] + [part["lengths"] for part in loaded]).astype(int)
        self.starts = np.cumsum(lengths)

    def windows(self, ends):
        """The windows that end with these rows, as one row of numbers each."""
        return self.rows[ends[:, None] + np.arange(1 - WINDOW, 1)].reshape(len(ends), -1)

    def scores(self, network, batch=4096):
        """The scores of each row's window. Rows without a complete window get a very low score."""
        found = np.full((len(self.rows), network.parameters[-1].size), -100, np.float32)
        usable = np.flatnonzero(self.complete())
        for first in range(0, len(usable), batch):
            part = usable[first:first + batch]
            found[part] = network.scores(self.windows(part))
        return found

    def best(self, scores):
        """The best score of each wake word in each take."""
        return np.maximum.reduceat(scores, self.starts[:-1], axis=0)

    def complete(self):
        place = np.arange(len(self.rows)) - np.repeat(self.starts[:-1], np.diff(self.starts))
        return place >= WINDOW - 1
