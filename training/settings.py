# SPDX-License-Identifier: Apache-2.0
"""The seed, the amounts of material, and the directories."""

import os

SEED = 20261122

WORDS = ("hey quorbit", "hey vexal")

# Takes of each wake word, and minutes of other sounds. These are the amounts of a first, short run (about half an hour
# of one core). More material is worth more than anything else that this training could change.
TAKES = {"train": 600, "eval": 150}
BENCH = 10  # takes of each wake word in each condition of the evaluation
MINUTES = {
    ("phrases", "train"): 40, ("talk", "train"): 50, ("music", "train"): 0, ("noise", "train"): 0,
    ("phrases", "eval"): 0, ("talk", "eval"): 10, ("music", "eval"): 0, ("noise", "eval"): 0,
}

RATE = 16000

# The front end: a spectrum every 10 ms, an embedding of 76 spectra every 80 ms, and a window of 16 embeddings.
STEP = 1280
SECONDS_PER_STEP = STEP / RATE
EMBEDDING = 96
WINDOW = 16

CACHE = os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache"))
MODELS = os.path.join(CACHE, "orvane-speech")  # filled by script/fetch-speech
WORK = os.path.join(CACHE, "orvane-training")
HERE = os.path.dirname(os.path.abspath(__file__))
