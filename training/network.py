# SPDX-License-Identifier: Apache-2.0
"""The head: layers with normalization, trained with Adam. Plain numpy, so that one seed always gives one result."""

import numpy as np

from settings import EMBEDDING, WINDOW, WORDS

SIZES = (WINDOW * EMBEDDING, 96, 64, len(WORDS))
EPSILON = 1e-5
DECAY = 1e-4


class Network:
    def __init__(self, random):
        self.parameters = []
        for place, (inputs, outputs) in enumerate(zip(SIZES, SIZES[1:])):
            weights = random.standard_normal((outputs, inputs)) * np.sqrt(2 / inputs)
            self.parameters += [weights.astype(np.float32), np.zeros(outputs, np.float32)]
            if place + 2 < len(SIZES):
                self.parameters += [np.ones(outputs, np.float32), np.zeros(outputs, np.float32)]
        self._first = [np.zeros_like(p) for p in self.parameters]
        self._second = [np.zeros_like(p) for p in self.parameters]
        self._steps = 0

    def layers(self):
        """Weights, bias, scale, and shift of each layer; the last layer has no normalization."""
        for place in range(0, len(self.parameters), 4):
            yield (self.parameters[place:place + 4] + [None, None])[:4]

    def scores(self, inputs):
        return self._forward(inputs)[0]

    def _forward(self, inputs, keep=None):
        memory = []
        for place, (weights, bias, scale, shift) in enumerate(self.layers()):
            linear = inputs @ weights.T + bias
            if scale is None:
                memory.append((inputs, None, None, None))
                return linear, memory
            deviation = np.sqrt(linear.var(axis=1, keepdims=True) + EPSILON)
            normal = (linear - linear.mean(axis=1, keepdims=True)) / deviation
            active = normal * scale + shift
            mask = active > 0
            if keep is not None:
                mask = mask * keep[place]
            memory.append((inputs, normal, deviation, mask))
            inputs = active * mask
        raise AssertionError("the last layer has no normalization")

    def gradients(self, inputs, slope_of, keep):
        """slope_of(scores): the loss's derivative for each score."""
        scores, memory = self._forward(inputs, keep)
        slope = slope_of(scores)
        found = []
        for (given, normal, deviation, mask), (weights, _, scale, _) in zip(reversed(memory),
                                                                            reversed(list(self.layers()))):
            if scale is None:
                found = [slope.T @ given, slope.sum(axis=0)] + found
            else:
                slope = slope * mask
                scales = [(slope * normal).sum(axis=0), slope.sum(axis=0)]
                slope = slope * scale
                slope = (slope - slope.mean(axis=1, keepdims=True)
                         - normal * (slope * normal).mean(axis=1, keepdims=True)) / deviation
                found = [slope.T @ given, slope.sum(axis=0)] + scales + found
            slope = slope @ weights
        return found

    def step(self, gradients, rate):
        self._steps += 1
        for place, gradient in enumerate(gradients):
            self._first[place] = 0.9 * self._first[place] + 0.1 * gradient
            self._second[place] = 0.999 * self._second[place] + 0.001 * gradient ** 2
            first = self._first[place] / (1 - 0.9 ** self._steps)
            second = self._second[place] / (1 - 0.999 ** self._steps)
            change = first / (np.sqrt(second) + 1e-8)
            if self.parameters[place].ndim == 2:
                change = change + DECAY * self.parameters[place]
            self.parameters[place] = (self.parameters[place] - rate * change).astype(np.float32)

    def fold(self, mean, deviation):
        """Makes the normalization of the inputs a part of the first layer."""
        weights, bias = self.parameters[:2]
        self.parameters[1] = (bias - weights @ (mean / deviation)).astype(np.float32)
        self.parameters[0] = (weights / deviation).astype(np.float32)
