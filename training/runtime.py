# SPDX-License-Identifier: Apache-2.0
"""Runs ONNX models with the runtime library that the service uses. Debian 12 has no Python module for it."""

import ctypes

import numpy as np

# Places in the library's table of functions (see lib/onnx/Api.h).
GET_ERROR_MESSAGE, CREATE_ENV, CREATE_SESSION_FROM_ARRAY, RUN, CREATE_OPTIONS = 2, 3, 8, 9, 10
SET_INTRA_THREADS, SET_INTER_THREADS, CREATE_TENSOR, TENSOR_DATA = 24, 25, 49, 51
GET_DIMENSIONS_COUNT, GET_DIMENSIONS, GET_SHAPE, CREATE_MEMORY_INFO = 61, 62, 65, 69
RELEASE_VALUE, RELEASE_SHAPE = 96, 99
API_VERSION = 17
FLOAT = 1
LOG_FATAL = 4

_pointer = ctypes.c_void_p
_long = ctypes.c_int64


class _Base(ctypes.Structure):
    _fields_ = [("get_api", ctypes.CFUNCTYPE(_pointer, ctypes.c_uint32)), ("get_version", _pointer)]


class Runtime:
    def __init__(self, library):
        loaded = ctypes.CDLL(library)
        loaded.OrtGetApiBase.restype = ctypes.POINTER(_Base)
        table = loaded.OrtGetApiBase().contents.get_api(API_VERSION)
        self._slots = ctypes.cast(table, ctypes.POINTER(_pointer))
        self.environment, self.memory = _pointer(), _pointer()
        self.call(CREATE_ENV, ctypes.c_int(LOG_FATAL), ctypes.c_char_p(b"training"), ctypes.byref(self.environment))
        self.call(CREATE_MEMORY_INFO, ctypes.c_int(0), ctypes.c_int(0), ctypes.byref(self.memory))

    def call(self, slot, *arguments):
        function = ctypes.cast(self._slots[slot], ctypes.CFUNCTYPE(_pointer))
        status = function(*arguments)
        if status:
            message = ctypes.cast(self._slots[GET_ERROR_MESSAGE], ctypes.CFUNCTYPE(ctypes.c_char_p, _pointer))
            raise RuntimeError(message(status).decode())

    def release(self, slot, handle):
        ctypes.cast(self._slots[slot], ctypes.CFUNCTYPE(None, _pointer))(handle)


class Session:
    """One model with one input and one output, both of floats."""

    def __init__(self, runtime, model, input_name, output_name):
        self._runtime = runtime
        self._model = model
        self._inputs = (ctypes.c_char_p * 1)(input_name.encode())
        self._outputs = (ctypes.c_char_p * 1)(output_name.encode())
        options, self._session = _pointer(), _pointer()
        runtime.call(CREATE_OPTIONS, ctypes.byref(options))
        runtime.call(SET_INTRA_THREADS, options, ctypes.c_int(1))
        runtime.call(SET_INTER_THREADS, options, ctypes.c_int(1))
        runtime.call(CREATE_SESSION_FROM_ARRAY, runtime.environment, ctypes.c_char_p(model),
                     ctypes.c_size_t(len(model)), options, ctypes.byref(self._session))

    def __call__(self, array):
        call = self._runtime.call
        array = np.ascontiguousarray(array, np.float32)
        shape = (_long * array.ndim)(*array.shape)
        given, answer = _pointer(), (_pointer * 1)()
        call(CREATE_TENSOR, self._runtime.memory, array.ctypes.data_as(_pointer), ctypes.c_size_t(array.nbytes), shape,
             ctypes.c_size_t(array.ndim), ctypes.c_int(FLOAT), ctypes.byref(given))
        try:
            call(RUN, self._session, _pointer(), self._inputs, (_pointer * 1)(given), ctypes.c_size_t(1),
                 self._outputs, ctypes.c_size_t(1), answer)
            return self._take(_pointer(answer[0]))
        finally:
            self._runtime.release(RELEASE_VALUE, given)

    def _take(self, value):
        call = self._runtime.call
        data, info, count = _pointer(), _pointer(), ctypes.c_size_t()
        try:
            call(GET_SHAPE, value, ctypes.byref(info))
            call(GET_DIMENSIONS_COUNT, info, ctypes.byref(count))
            shape = (_long * count.value)()
            call(GET_DIMENSIONS, info, shape, count)
            self._runtime.release(RELEASE_SHAPE, info)
            call(TENSOR_DATA, value, ctypes.byref(data))
            size = int(np.prod(shape))
            numbers = ctypes.cast(data, ctypes.POINTER(ctypes.c_float * size)).contents
            return np.frombuffer(numbers, np.float32).reshape(tuple(shape)).copy()
        finally:
            self._runtime.release(RELEASE_VALUE, value)
