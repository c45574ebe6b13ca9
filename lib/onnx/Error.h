// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>

namespace onnx {

// The library or a model is missing or unusable, or a model rejected its input. what() is one line.
struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace onnx
