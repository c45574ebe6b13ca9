# SPDX-License-Identifier: Apache-2.0
"""Samples to embeddings, as the service computes them."""

import functools
import os

import numpy as np
import onnx
from onnx import numpy_helper

from runtime import Runtime, Session
from settings import EMBEDDING, MODELS, STEP

SPECTRA = 76  # of one embedding
PER_STEP = 8  # spectra
OVERLAP = 352  # a spectrum covers 512 samples, one every 160
QUIETEST = 7  # the dither's largest value


def _read(path):
    with open(path, "rb") as file:
        return file.read()


def _any_length(model):
    """The embedding model computes 76 spectra. It does not pad in time, so its two reshapes can pass any number."""
    graph = onnx.load_from_string(model)
    shapes = {"new_shape__262": [1, 1, -1, 32], "new_shape__273": [1, 1, 96, -1]}
    for tensor in graph.graph.initializer:
        if tensor.name in shapes:
            tensor.CopyFrom(numpy_helper.from_array(np.array(shapes[tensor.name], np.int64), tensor.name))
    for value, size in ((graph.graph.input[0], "spectra"), (graph.graph.output[0], "embeddings")):
        for dimension in value.type.tensor_type.shape.dim:
            dimension.ClearField("dim_value")
            dimension.dim_param = size
        for place, dimension in enumerate(value.type.tensor_type.shape.dim):
            dimension.dim_param = f"{size}{place}"
    return graph.SerializeToString()


@functools.lru_cache(maxsize=None)
def _sessions():
    runtime = Runtime(os.path.join(MODELS, "libonnxruntime.so"))
    spectrum = Session(runtime, _read(os.path.join(MODELS, "wakeword/melspectrogram.onnx")), "input", "output")
    model = _any_length(_read(os.path.join(MODELS, "wakeword/embedding.onnx")))
    embedding = Session(runtime, model, "input_1", "conv2d_19")
    return spectrum, embedding


def dither(samples, random):
    """The same amount of noise that the service adds to every sample."""
    noise = random.integers(0, QUIETEST + 1, len(samples)) - random.integers(0, QUIETEST + 1, len(samples))
    return np.clip(samples + noise, -32768, 32767).astype(np.int16)


def spectra(samples):
    """Eight spectra for each complete step. The model limits its range to 80 dB per call, so the calls must have the
    size that the service uses."""
    compute = _sessions()[0]
    samples = samples.astype(np.float32)
    steps = max(0, (len(samples) - OVERLAP) // STEP)
    parts = [compute(samples[None, s * STEP:(s + 1) * STEP + OVERLAP]).reshape(PER_STEP, 32) for s in range(steps)]
    return np.concatenate(parts) / 10 + 2 if parts else np.zeros((0, 32), np.float32)


def embeddings(samples):
    """One embedding for each complete step after the first 76 spectra (two more steps)."""
    rows = spectra(samples)
    rows = rows[len(rows) % PER_STEP:]
    count = (len(rows) - SPECTRA) // PER_STEP + 1
    if count < 1:
        return np.zeros((0, EMBEDDING), np.float32)
    # 76 is not a multiple of 8: skip the first spectra, so that the last embedding ends with the last spectrum.
    rows = rows[len(rows) - SPECTRA - (count - 1) * PER_STEP:]
    return _sessions()[1](rows[None, :, :, None]).reshape(EMBEDDING, count).T
