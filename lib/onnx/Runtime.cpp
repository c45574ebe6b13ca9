// SPDX-License-Identifier: Apache-2.0
#include "onnx/Runtime.h"

#include <dlfcn.h>

#include <algorithm>
#include <mutex>

namespace onnx {

namespace {

// The library's names in Debian and in upstream releases.
constexpr const char* kSystemNames[] = {"libonnxruntime.so.1", "libonnxruntime.so.1.21", "libonnxruntime.so"};

std::string oneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

// The library stays loaded.
void* load(const std::string& directory) {
    for (const char* name : kSystemNames) {
        if (void* library = dlopen(name, RTLD_NOW | RTLD_LOCAL)) {
            return library;
        }
    }
    if (void* library = dlopen((directory + "/libonnxruntime.so").c_str(), RTLD_NOW | RTLD_LOCAL)) {
        return library;
    }
    throw Error(oneLine(dlerror()));
}

ApiBase baseOf(void* library) {
    using GetBase = const ApiBase* (*)();
    const auto get = reinterpret_cast<GetBase>(dlsym(library, "OrtGetApiBase"));
    if (!get) {
        throw Error("libonnxruntime.so is not ONNX Runtime");
    }
    return *get();
}

}  // namespace

std::shared_ptr<const Runtime> Runtime::open(const std::string& directory) {
    static std::mutex mutex;
    static std::weak_ptr<const Runtime> known;
    const std::lock_guard lock(mutex);
    std::shared_ptr<const Runtime> runtime = known.lock();
    if (!runtime) {
        runtime.reset(new Runtime(baseOf(load(directory))));
        known = runtime;
    }
    return runtime;
}

Runtime::Runtime(const ApiBase& base) : mVersion(base.getVersion()) {
    void* const* table = base.getApi(kApiVersion);
    if (!table) {
        throw Error("ONNX Runtime " + mVersion + " is too old");
    }
#define ORVANE_ONNX_FIND(place, result, name, parameters) \
    mApi.name = reinterpret_cast<decltype(mApi.name)>(table[place]);
    ORVANE_ONNX_FUNCTIONS(ORVANE_ONNX_FIND)
#undef ORVANE_ONNX_FIND
    check(mApi.CreateCpuMemoryInfo(kDeviceAllocator, kDefaultMemory, &mMemory));
    Status* failure = mApi.CreateEnv(kLogFatal, "orvane", &mEnvironment);
    if (failure) {
        mApi.ReleaseMemoryInfo(mMemory);
    }
    check(failure);
}

Runtime::~Runtime() {
    mApi.ReleaseMemoryInfo(mMemory);
    mApi.ReleaseEnv(mEnvironment);
}

void Runtime::check(Status* status) const {
    if (status) {
        const std::string what = oneLine(mApi.GetErrorMessage(status));
        mApi.ReleaseStatus(status);
        throw Error(what);
    }
}

}  // namespace onnx
