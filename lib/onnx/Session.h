// SPDX-License-Identifier: Apache-2.0
// A loaded model. It computes on the calling thread. One thread at a time.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "onnx/Runtime.h"
#include "onnx/Tensor.h"

namespace onnx {

// Optimizations, which trade memory for speed.
struct SessionOptions {
    bool arena = false;    // keeps freed memory for the next run
    bool pattern = false;  // plans memory for inputs of equal shape
    bool prepack = true;   // rearranges the weights once, in additional memory
};

class Session {
public:
    // Loads the model from the file, which takes from milliseconds to a second. Throws Error.
    Session(std::shared_ptr<const Runtime> runtime, const std::string& path, const SessionOptions& options = {});
    Session(Session&&) = default;
    Session& operator=(Session&&) = default;

    const std::vector<Port>& inputs() const { return mInputs; }
    const std::vector<std::string>& outputs() const { return mOutputs; }
    const std::shared_ptr<const Runtime>& runtime() const { return mSession.get_deleter().runtime; }

    // The model's inputs by name; the tensors must outlive the call.
    using Inputs = std::vector<std::pair<const char*, const Tensor*>>;
    // Returns the named outputs in their order. Throws Error if a name, a type, or a shape does not fit the model.
    std::vector<Tensor> run(const Inputs& inputs, const std::vector<std::string>& outputs);

private:
    struct Free {
        std::shared_ptr<const Runtime> runtime;
        void operator()(ModelSession* session) const noexcept { runtime->api().ReleaseSession(session); }
    };
    void readPorts();

    std::unique_ptr<ModelSession, Free> mSession;
    std::string mPath;
    std::vector<Port> mInputs;
    std::vector<std::string> mOutputs;
};

}  // namespace onnx
