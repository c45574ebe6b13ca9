# SPDX-License-Identifier: Apache-2.0
"""The head's file: one line of JSON, then the weights as little-endian 32-bit floats.

For each layer: weights (one row for each output), bias, and, except in the last layer, the scale and the shift of the
normalization. README.md describes the line.
"""

import hashlib
import json
import os

import numpy as np

from network import SIZES, Network
from settings import HERE, MODELS, SEED, WORDS, WORK

PATH = os.path.join(HERE, "..", "data", "voice", "data", "wakeword.head")
RAW = os.path.join(WORK, "head.npz")
FRONT_END = ("wakeword/melspectrogram.onnx", "wakeword/embedding.onnx")


def save_raw(network):
    np.savez(RAW, *network.parameters)


def load_raw():
    network = Network(np.random.default_rng(0))
    with np.load(RAW) as stored:
        network.parameters = [stored[name] for name in stored.files]
    return network


def _sha256(path):
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def save(network, thresholds, certain):
    body = b"".join(np.ascontiguousarray(p, "<f4").tobytes() for p in network.parameters)
    header = {
        "words": [{"phrase": word, "threshold": round(float(low), 2), "certain": round(float(high), 2)}
                  for word, low, high in zip(WORDS, thresholds, certain)],
        "layers": list(SIZES),
        "models": {name: _sha256(os.path.join(MODELS, name)) for name in FRONT_END},
        "seed": SEED,
        "weights_sha256": hashlib.sha256(body).hexdigest(),
    }
    with open(PATH, "wb") as file:
        file.write(json.dumps(header, sort_keys=True).encode() + b"\n" + body)


def thresholds():
    with open(PATH, "rb") as file:
        return [word["threshold"] for word in json.loads(file.readline())["words"]]
