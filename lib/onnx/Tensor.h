// SPDX-License-Identifier: Apache-2.0
// An array of numbers that goes into a model or comes out of it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "onnx/Runtime.h"

namespace onnx {

enum class Type { Float = 1, Int64 = 7, Bool = 9, Other = 0 };
// The length of each dimension. -1 in a model's input: any length.
using Shape = std::vector<int64_t>;

class Tensor {
public:
    // Move the numbers into the tensor. Throw Error if their count does not fit the shape.
    Tensor(std::shared_ptr<const Runtime> runtime, std::vector<float> numbers, Shape shape);
    Tensor(std::shared_ptr<const Runtime> runtime, std::vector<int64_t> numbers, Shape shape);
    // One truth value, with the shape {1}.
    Tensor(std::shared_ptr<const Runtime> runtime, bool flag);
    // Takes ownership of a model's output.
    Tensor(std::shared_ptr<const Runtime> runtime, Value* output);

    const Shape& shape() const { return mShape; }
    std::size_t count() const;
    // The numbers, in the tensor's memory. Throws Error if they have another type.
    const float* floats() const;

    Value* handle() const { return mValue.get(); }

private:
    struct Free {
        std::shared_ptr<const Runtime> runtime;
        void operator()(Value* value) const noexcept { runtime->api().ReleaseValue(value); }
    };
    Value* wrap(void* data, std::size_t bytes);

    Type mType;
    Shape mShape;
    std::vector<float> mFloats;
    std::vector<int64_t> mIntegers;
    std::unique_ptr<bool> mFlag;
    std::unique_ptr<Value, Free> mValue;
};

// What a model accepts or returns under a name.
struct Port {
    std::string name;
    Type type = Type::Other;
    Shape shape;
};

// The type and shape of an output or an input.
Port describe(const Runtime& runtime, const ShapeInfo* info);

}  // namespace onnx
