# SPDX-License-Identifier: Apache-2.0
"""Synthesized voices, and which half of them is for training.

The English festival voices and the espeak-ng variants f2, f4, and m6 are reserved for the evaluation of the whole
assistant. Nothing here uses them. The flite voices slt and kal16 come from the speakers of two of these festival
voices, so they are never used for training.
"""

import os
import subprocess
import tempfile

import numpy as np
import soundfile
from scipy.signal import resample_poly

from settings import RATE

# Variants of one base share a half, because they sound alike.
ESPEAK = {
    "train": ["", "m1", "m3", "m5", "m8", "f1", "f5", "klatt", "klatt2", "klatt3", "whisper", "Alex", "Alicia", "Andy",
              "antonio", "belinda", "caleb", "ed", "Gene", "Gene2", "gustave", "Hugo", "iven", "iven2", "iven3", "iven4",
              "john", "Lee", "linda", "marcelo", "Mario", "max", "Michael", "miguel", "Mr serious", "pablo", "quincy",
              "rob", "steph", "steph2", "steph3", "travis", "Tweaky", "grandma", "sandro", "norbert", "adam"],
    "eval": ["m2", "m4", "m7", "f3", "klatt4", "klatt5", "klatt6", "whisperf", "Andrea", "Annie", "aunty", "benjamin",
             "boris", "david", "Denis", "Diogo", "edward", "edward2", "Henrique", "Jacky", "kaukovalta", "Marco",
             "michel", "Mike", "Nguyen", "paul", "pedro", "RicishayMax", "robert", "Storm", "victor", "zac", "anika",
             "grandpa", "shelby", "croak"],
}
ACCENTS = ["en-us", "en-gb", "en-gb-x-rp", "en-gb-scotland", "en-gb-x-gbclan", "en-gb-x-gbcwmd", "en-029", "en-us-nyc"]
LANGUAGES = ["de", "fr", "it", "ko", "es", "nl", "pt", "pl", "sv"]

FLITE = {"train": ["awb", "rms"], "eval": ["slt", "kal16"]}

FESTIVAL = {
    "train": [("it", "lp_diphone"), ("cs", "czech_dita"), ("cs", "czech_krb"), ("fi", "suo_fi_lj_diphone"),
              ("ru", "msu_ru_nsh_clunits")],
    "eval": [("it", "pc_diphone"), ("cs", "czech_machac"), ("cs", "czech_ph"), ("fi", "hy_fi_mv_diphone"),
             ("ca", "upc_ca_ona_hts")],
}


def _read(path):
    samples, rate = soundfile.read(path)
    if rate != RATE:
        step = np.gcd(rate, RATE)
        samples = resample_poly(samples, RATE // step, rate // step)
    return np.clip(samples * 32768, -32768, 32767).astype(np.int16)


def _run(command, **options):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)


def espeak(voice, text, speed, pitch):
    """speed in words per minute (about 160), pitch from 0 to 99 (about 50)."""
    with tempfile.NamedTemporaryFile(suffix=".wav") as file:
        _run(["espeak-ng", "-v", voice, "-s", str(speed), "-p", str(pitch), "-w", file.name, text])
        return _read(file.name)


def flite(voice, text, stretch, pitch):
    """stretch of the duration (about 1), pitch in Hz or None."""
    with tempfile.NamedTemporaryFile(suffix=".wav") as file:
        command = ["flite", "-voice", voice, "--setf", f"duration_stretch={stretch}"]
        if pitch:
            command += ["--setf", f"int_f0_target_mean={pitch}"]
        _run(command + ["-t", text, "-o", file.name])
        return _read(file.name)


def festival(voice, texts_and_stretches):
    """Samples for each text. The program starts slowly, so one run speaks many texts."""
    with tempfile.TemporaryDirectory() as directory:
        lines = [f"(voice_{voice})"]
        for place, (text, stretch) in enumerate(texts_and_stretches):
            path = os.path.join(directory, f"{place}.wav")
            lines.append(f"(Parameter.set 'Duration_Stretch {stretch})")
            lines.append(f'(set! u (utt.synth (Utterance Text "{text}")))')
            lines.append(f'(utt.save.wave u "{path}" \'riff)')
        script = os.path.join(directory, "say.scm")
        with open(script, "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
        _run(["festival", "-b", script])
        return [_read(os.path.join(directory, f"{place}.wav")) for place in range(len(texts_and_stretches))]
