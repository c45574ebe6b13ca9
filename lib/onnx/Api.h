// SPDX-License-Identifier: Apache-2.0
// The part of ONNX Runtime's interface that the wrapper calls. The library exports one table of functions, whose order
// never changes; each entry here names its place in the table.
#pragma once

#include <cstddef>
#include <cstdint>

namespace onnx {

// The library's objects.
struct Allocator;
struct Environment;
struct MemoryInfo;
struct ModelSession;
struct Options;
struct RunOptions;
struct ShapeInfo;
struct Status;
struct TypeInfo;
struct Value;

// The version of the table to ask for. Every later library still has it.
constexpr uint32_t kApiVersion = 17;

// Values of the library's enumerations.
constexpr int kLogFatal = 4;
constexpr int kDeviceAllocator = 0;
constexpr int kDefaultMemory = 0;
constexpr int kEveryOptimization = 99;

// F(place, result, name, parameters). A null status means success.
#define ORVANE_ONNX_FUNCTIONS(F)                                                                                 \
    F(2, const char*, GetErrorMessage, (const Status*))                                                          \
    F(3, Status*, CreateEnv, (int logLevel, const char* name, Environment**))                                    \
    F(7, Status*, CreateSession, (const Environment*, const char* path, const Options*, ModelSession**))         \
    F(9, Status*, Run,                                                                                           \
      (ModelSession*, const RunOptions*, const char* const* inputNames, const Value* const* inputs,              \
       std::size_t inputCount, const char* const* outputNames, std::size_t outputCount, Value** outputs))        \
    F(10, Status*, CreateSessionOptions, (Options**))                                                            \
    F(17, Status*, DisableMemPattern, (Options*))                                                                \
    F(19, Status*, DisableCpuMemArena, (Options*))                                                               \
    F(22, Status*, SetSessionLogSeverityLevel, (Options*, int level))                                            \
    F(23, Status*, SetSessionGraphOptimizationLevel, (Options*, int level))                                      \
    F(24, Status*, SetIntraOpNumThreads, (Options*, int count))                                                  \
    F(25, Status*, SetInterOpNumThreads, (Options*, int count))                                                  \
    F(30, Status*, SessionGetInputCount, (const ModelSession*, std::size_t*))                                    \
    F(31, Status*, SessionGetOutputCount, (const ModelSession*, std::size_t*))                                   \
    F(33, Status*, SessionGetInputTypeInfo, (const ModelSession*, std::size_t index, TypeInfo**))                \
    F(36, Status*, SessionGetInputName, (const ModelSession*, std::size_t index, Allocator*, char**))            \
    F(37, Status*, SessionGetOutputName, (const ModelSession*, std::size_t index, Allocator*, char**))           \
    F(49, Status*, CreateTensorWithDataAsOrtValue,                                                               \
      (const MemoryInfo*, void* data, std::size_t bytes, const int64_t* shape, std::size_t dimensions, int type, \
       Value**))                                                                                                 \
    F(51, Status*, GetTensorMutableData, (Value*, void**))                                                       \
    F(55, Status*, CastTypeInfoToTensorInfo, (const TypeInfo*, const ShapeInfo**))                               \
    F(60, Status*, GetTensorElementType, (const ShapeInfo*, int*))                                               \
    F(61, Status*, GetDimensionsCount, (const ShapeInfo*, std::size_t*))                                         \
    F(62, Status*, GetDimensions, (const ShapeInfo*, int64_t*, std::size_t))                                     \
    F(65, Status*, GetTensorTypeAndShape, (const Value*, ShapeInfo**))                                           \
    F(69, Status*, CreateCpuMemoryInfo, (int allocator, int memory, MemoryInfo**))                               \
    F(76, Status*, AllocatorFree, (Allocator*, void*))                                                           \
    F(78, Status*, GetAllocatorWithDefaultOptions, (Allocator**))                                                \
    F(92, void, ReleaseEnv, (Environment*))                                                                      \
    F(93, void, ReleaseStatus, (Status*))                                                                        \
    F(94, void, ReleaseMemoryInfo, (MemoryInfo*))                                                                \
    F(95, void, ReleaseSession, (ModelSession*))                                                                 \
    F(96, void, ReleaseValue, (Value*))                                                                          \
    F(98, void, ReleaseTypeInfo, (TypeInfo*))                                                                    \
    F(99, void, ReleaseTensorTypeAndShapeInfo, (ShapeInfo*))                                                     \
    F(100, void, ReleaseSessionOptions, (Options*))                                                              \
    F(130, Status*, AddSessionConfigEntry, (Options*, const char* key, const char* value))

struct Api {
// A declaration takes no parentheses here. NOLINTNEXTLINE(bugprone-macro-parentheses)
#define ORVANE_ONNX_POINTER(place, result, name, parameters) result(*name) parameters;
    ORVANE_ONNX_FUNCTIONS(ORVANE_ONNX_POINTER)
#undef ORVANE_ONNX_POINTER
};

// What the library's one exported function, OrtGetApiBase, returns.
struct ApiBase {
    void* const* (*getApi)(uint32_t version);
    const char* (*getVersion)();
};

}  // namespace onnx
