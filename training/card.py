# SPDX-License-Identifier: Apache-2.0
"""Writes MODEL.md from the result of evaluate.py.

usage: card.py < results.json
"""

import json
import os
import sys

import material
from dataset import Dataset
from settings import HERE, SEED, WORDS
from thresholds import hours

WEAKNESSES = """## Known weaknesses

- This was a short run: 0.7 hours of human talk in the training, and 0.14 hours for the thresholds. The false detections in unseen talk
  are far too many for a kitchen, so no shipped configuration selects the network. All of the 4 hours of talk that `recordings.py` finds
  belong into the next run.
- "hey, good morning" in the voice slt counts as "hey quorbit" (score 3.3). A wake word that follows other words without a pause, and is
  followed by others, has a low score.
- Every positive take is synthesized. The voices are formant and diphone synthesizers and four statistical voices, and their wake words
  are spelled for each language. Nobody has measured human wake words.
- Takes are few for the number of voices. The training half has two flite voices, both male; the evaluation half has the others.
- Halves are separated by voice, by speaker of prompts, by set of exclamations, by track of music, and by recording of the adventure
  game and the strategy game, so the same actors speak in both halves of these games.
- The front end was trained by others on other material, which is not documented here.
"""


def amounts(half):
    for kind in material.KINDS:
        data = Dataset(half, kinds=(kind,))
        if len(data.rows):
            yield f"| {kind} | {half} | {len(data.starts) - 1} | {hours(data):.2f} |"


def rows(results):
    for word in WORDS:
        for condition, (count, lost) in results["missed"][word].items():
            yield f"| {word} | {condition} | {count} | " + " | ".join(map(str, lost)) + " |"
        count, *lost = results["missed in random conditions"][word]
        yield f"| {word} | random | {count} | " + " | ".join(map(str, lost)) + " |"


def false_rows(results):
    for kind, found in results["false detections"].items():
        for word in WORDS:
            yield f"| {word} | {kind} | {found['hours']} h | " + " | ".join(map(str, found[word])) + " |"


def card(results):
    *tried, chosen = results["thresholds"]
    head = "| wake word | sound | amount | " + " | ".join(f"at {level}" for level in tried) + " | as shipped |"
    line = "|" + "---|" * (len(tried) + 4)
    return "\n".join([
        "# The wake-word head", "",
        "`training/run` writes this page. README.md describes the training and the file.", "",
        f"- Seed {SEED}. Thresholds as shipped: " + ", ".join(f"{w} {t}" for w, t in zip(WORDS, chosen)) + ".",
        "- The material is that of `settings.py`, or the part of it below, if a run was stopped early.", "",
        "| kind | half | takes | hours of windows |", "|---|---|---|---|", *amounts("train"), *amounts("eval"), "",
        "## Missed wake words", "",
        "Takes of the evaluation half, whose voices the training never used. Noise is 10 dB below the voice. \"random\" has the",
        "conditions of the training: rooms, noise 2 to 30 dB below the voice, other talk just before, codecs, levels.", "",
        head, line, *rows(results), "",
        "## False detections", "",
        "In sounds of the evaluation half. Three tenths of them begin with silence, and half of them are in other rooms and noise.",
        "\"talk\" is human; \"phrases\" is synthesized and contains many phrases that sound like a wake word.", "",
        head, line, *false_rows(results), "", WEAKNESSES])


if __name__ == "__main__":
    with open(os.path.join(HERE, "MODEL.md"), "w", encoding="utf-8") as file:
        file.write(card(json.load(sys.stdin)))
