# SPDX-License-Identifier: Apache-2.0
"""Human talk and music from Debian packages, half for training and half for evaluation.

The packages are downloaded and unpacked below the work directory, and not installed.
"""

import glob
import io
import os
import struct
import subprocess
import zipfile
import zlib

import numpy as np
import soundfile
from scipy.signal import resample_poly

from settings import RATE, WORK

# Prompts of telephone systems, by speaker.
PROMPTS = {
    "train": [("asterisk-core-sounds-fr-wav", "fr_CA_f_June"), ("asterisk-prompt-it-menardi-wav", "it_IT_f_Menardi"),
              ("asterisk-prompt-es-co", "es")],
    "eval": [("asterisk-core-sounds-es-wav", "es_MX_f_Allison"), ("asterisk-core-sounds-it-wav", "it_IT_m_Carlo"),
             ("asterisk-core-sounds-ru-wav", "ru_RU_f_IvrvoiceRU"), ("asterisk-prompt-fr-armelle", "fr")],
}
MUSIC = ["drascula-music", "wesnoth-1.16-music", "frozen-bubble-data"]
SECONDS_PER_TRACK = 150
GAP = RATE // 3  # between two recordings


def unpacked(package):
    """The directory with the package's files."""
    directory = os.path.join(WORK, "packages", package)
    if not os.path.isdir(directory):
        os.makedirs(os.path.dirname(directory), exist_ok=True)
        os.makedirs(directory + ".new", exist_ok=True)
        subprocess.run(["apt-get", "-qq", "download", package], cwd=directory + ".new", check=True,
                       stderr=subprocess.DEVNULL)
        archive = glob.glob(directory + ".new/*.deb")[0]
        subprocess.run(["dpkg", "-x", archive, directory + ".new"], check=True)
        os.remove(archive)
        os.rename(directory + ".new", directory)
    return directory


def _half(name):
    """A recording belongs to the same half in every run."""
    return "train" if zlib.crc32(name.encode()) % 2 == 0 else "eval"


def _decode(source, seconds=None):
    with soundfile.SoundFile(source) as file:
        samples = file.read(int((seconds or 3600) * file.samplerate), always_2d=True).mean(axis=1)
        rate = file.samplerate
    if rate != RATE:
        step = np.gcd(rate, RATE)
        samples = resample_poly(samples, RATE // step, rate // step)
    return np.clip(samples * 32768, -32768, 32767).astype(np.int16)


def _decode_gsm(path):
    raw = subprocess.run(["sox", path, "-r", str(RATE), "-b", "16", "-e", "signed", "-t", "raw", "-"], check=True,
                         capture_output=True).stdout
    return np.frombuffer(raw, np.int16)


def _prompts(half):
    for package, speaker in PROMPTS[half]:
        files = glob.glob(os.path.join(unpacked(package), "usr/share/asterisk/sounds", speaker, "**"), recursive=True)
        for path in sorted(files):
            if path.endswith(".wav"):
                yield _decode(path)
            elif path.endswith(".gsm"):
                yield _decode_gsm(path)


def _adventure(half):
    """English dialogue of an adventure game. Its file begins with a table of names, places, and sizes."""
    package = "flight-of-the-amazon-queen"
    with open(os.path.join(unpacked(package), "usr/share/scummvm", package, "queen.1c"), "rb") as file:
        data = file.read()
    count, = struct.unpack(">H", data[13:15])
    for entry in range(count):
        name, _, place, size = struct.unpack(">12sBII", data[15 + 21 * entry:36 + 21 * entry])
        name = name.rstrip(b"\0").decode("latin-1")
        if name.endswith(".SB") and size > 500 and _half(name) == half:
            try:
                yield _decode(io.BytesIO(data[place:place + size]))
            except soundfile.LibsndfileError:
                pass  # a sound effect in another format


def _strategy(half):
    """English announcements of a strategy game."""
    directory = os.path.join(unpacked("warzone2100-data"), "usr/share/games/warzone2100/base.wz")
    with zipfile.ZipFile(directory) as archive:
        for name in sorted(archive.namelist()):
            if name.endswith(".ogg") and "/sfx/" not in name and _half(name) == half:
                yield _decode(io.BytesIO(archive.read(name)))


def _shouts(half):
    """Short exclamations in several languages and accents. A set of voices belongs to one half."""
    sets = glob.glob(os.path.join(unpacked("hedgewars-data"), "usr/share/games/hedgewars/Data/Sounds/voices/*"))
    for directory in sorted(sets)[0 if half == "train" else 1::2]:
        for path in sorted(glob.glob(directory + "/*.ogg")):
            yield _decode(path)


def _music(half):
    for package in MUSIC:
        tracks = glob.glob(os.path.join(unpacked(package), "**/*.ogg"), recursive=True)
        for path in sorted(tracks)[0 if half == "train" else 1::2]:
            track = _decode(path, SECONDS_PER_TRACK)
            if len(track) > 10 * RATE:
                yield track


def _stored(name, half, parts):
    path = os.path.join(WORK, f"{name}-{half}.npy")
    if not os.path.exists(path):
        os.makedirs(WORK, exist_ok=True)
        pieces = [piece for part in parts(half) if len(part) > RATE // 10 for piece in (part, np.zeros(GAP, np.int16))]
        np.save(path + ".new.npy", np.concatenate(pieces))
        os.rename(path + ".new.npy", path)
    return np.load(path, mmap_mode="r")


def talk(half):
    """All human talk of this half, one after the other, as 16 kHz samples."""
    def parts(of):
        for source in (_prompts, _adventure, _strategy, _shouts):
            yield from source(of)
    return _stored("talk", half, parts)


def music(half):
    return _stored("music", half, _music)


if __name__ == "__main__":
    for each in ("train", "eval"):
        for kind in (talk, music):
            print(each, kind.__name__, round(len(kind(each)) / RATE / 3600, 2), "h")
