// SPDX-License-Identifier: Apache-2.0
// ONNX Runtime, loaded at run time, so that the program also starts without it.
#pragma once

#include <memory>
#include <string>

#include "onnx/Api.h"
#include "onnx/Error.h"

namespace onnx {

class Runtime {
public:
    // The process's runtime. The first call that succeeds loads the library, which stays loaded until the process ends:
    // the system's, otherwise libonnxruntime.so in the directory. Any thread; blocks while it loads. Throws Error.
    static std::shared_ptr<const Runtime> open(const std::string& directory);

    ~Runtime();
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    std::string version() const { return mVersion; }
    const Api& api() const { return mApi; }
    const Environment* environment() const { return mEnvironment; }
    const MemoryInfo* memory() const { return mMemory; }
    // Throws Error unless the status means success. Takes ownership of the status.
    void check(Status* status) const;

private:
    explicit Runtime(const ApiBase& base);

    Api mApi{};
    std::string mVersion;
    Environment* mEnvironment = nullptr;
    MemoryInfo* mMemory = nullptr;
};

}  // namespace onnx
