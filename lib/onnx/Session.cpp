// SPDX-License-Identifier: Apache-2.0
#include "onnx/Session.h"

#include <algorithm>

namespace onnx {

namespace {

std::shared_ptr<Options> optionsFor(const Runtime& runtime, const SessionOptions& wanted) {
    const Api& api = runtime.api();
    Options* made = nullptr;
    runtime.check(api.CreateSessionOptions(&made));
    std::shared_ptr<Options> options(made, api.ReleaseSessionOptions);
    runtime.check(api.SetIntraOpNumThreads(made, 1));
    runtime.check(api.SetInterOpNumThreads(made, 1));
    runtime.check(api.SetSessionLogSeverityLevel(made, kLogFatal));
    runtime.check(api.SetSessionGraphOptimizationLevel(made, kEveryOptimization));
    if (!wanted.arena) {
        runtime.check(api.DisableCpuMemArena(made));
    }
    if (!wanted.pattern) {
        runtime.check(api.DisableMemPattern(made));
    }
    if (!wanted.prepack) {
        runtime.check(api.AddSessionConfigEntry(made, "session.disable_prepacking", "1"));
    }
    return options;
}

template <typename GetName>
std::string nameOf(const Runtime& runtime, const ModelSession* session, std::size_t index, GetName getName) {
    Allocator* allocator = nullptr;
    runtime.check(runtime.api().GetAllocatorWithDefaultOptions(&allocator));
    char* name = nullptr;
    runtime.check(getName(session, index, allocator, &name));
    std::string copy = name;
    runtime.check(runtime.api().AllocatorFree(allocator, name));
    return copy;
}

Port inputOf(const Runtime& runtime, const ModelSession* session, std::size_t index) {
    const Api& api = runtime.api();
    TypeInfo* info = nullptr;
    runtime.check(api.SessionGetInputTypeInfo(session, index, &info));
    const std::shared_ptr<TypeInfo> owner(info, api.ReleaseTypeInfo);
    const ShapeInfo* shape = nullptr;
    runtime.check(api.CastTypeInfoToTensorInfo(info, &shape));
    if (!shape) {
        throw Error("an input of the model is not a tensor");
    }
    Port port = describe(runtime, shape);
    port.name = nameOf(runtime, session, index, api.SessionGetInputName);
    return port;
}

}  // namespace

Session::Session(std::shared_ptr<const Runtime> runtime, const std::string& path, const SessionOptions& options) try
    : mSession(nullptr, Free{runtime}), mPath(path) {
    const auto settings = optionsFor(*runtime, options);
    ModelSession* session = nullptr;
    runtime->check(runtime->api().CreateSession(runtime->environment(), path.c_str(), settings.get(), &session));
    mSession.reset(session);
    readPorts();
} catch (const Error& fault) {
    throw Error(path + ": " + fault.what());
}

void Session::readPorts() {
    const Runtime& library = *runtime();
    std::size_t count = 0;
    library.check(library.api().SessionGetInputCount(mSession.get(), &count));
    for (std::size_t i = 0; i < count; ++i) {
        mInputs.push_back(inputOf(library, mSession.get(), i));
    }
    library.check(library.api().SessionGetOutputCount(mSession.get(), &count));
    for (std::size_t i = 0; i < count; ++i) {
        mOutputs.push_back(nameOf(library, mSession.get(), i, library.api().SessionGetOutputName));
    }
}

std::vector<Tensor> Session::run(const Inputs& inputs, const std::vector<std::string>& outputs) {
    std::vector<const char*> inputNames;
    std::vector<const char*> outputNames;
    std::vector<const Value*> values;
    for (const auto& [name, tensor] : inputs) {
        inputNames.push_back(name);
        values.push_back(tensor->handle());
    }
    std::transform(outputs.begin(), outputs.end(), std::back_inserter(outputNames),
                   [](auto& name) { return name.c_str(); });
    std::vector<Value*> results(outputs.size(), nullptr);
    Status* failure = runtime()->api().Run(mSession.get(), nullptr, inputNames.data(), values.data(), values.size(),
                                           outputNames.data(), outputNames.size(), results.data());
    try {
        runtime()->check(failure);
    } catch (const Error& fault) {
        throw Error(mPath + ": " + fault.what());
    }
    std::vector<Tensor> tensors;
    tensors.reserve(results.size());
    for (Value* result : results) {
        tensors.emplace_back(runtime(), result);
    }
    return tensors;
}

}  // namespace onnx
