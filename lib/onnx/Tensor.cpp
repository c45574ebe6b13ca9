// SPDX-License-Identifier: Apache-2.0
#include "onnx/Tensor.h"

#include <functional>
#include <numeric>
#include <utility>

namespace onnx {

namespace {

std::size_t product(const Shape& shape) {
    return static_cast<std::size_t>(std::accumulate(shape.begin(), shape.end(), int64_t{1}, std::multiplies<>()));
}

Type known(int type) {
    for (const Type one : {Type::Float, Type::Int64, Type::Bool}) {
        if (static_cast<int>(one) == type) {
            return one;
        }
    }
    return Type::Other;
}

}  // namespace

Tensor::Tensor(std::shared_ptr<const Runtime> runtime, std::vector<float> numbers, Shape shape)
    : mType(Type::Float),
      mShape(std::move(shape)),
      mFloats(std::move(numbers)),
      mValue(nullptr, Free{std::move(runtime)}) {
    mValue.reset(wrap(mFloats.data(), mFloats.size() * sizeof(float)));
}

Tensor::Tensor(std::shared_ptr<const Runtime> runtime, std::vector<int64_t> numbers, Shape shape)
    : mType(Type::Int64),
      mShape(std::move(shape)),
      mIntegers(std::move(numbers)),
      mValue(nullptr, Free{std::move(runtime)}) {
    mValue.reset(wrap(mIntegers.data(), mIntegers.size() * sizeof(int64_t)));
}

Tensor::Tensor(std::shared_ptr<const Runtime> runtime, bool flag)
    : mType(Type::Bool), mShape{1}, mFlag(std::make_unique<bool>(flag)), mValue(nullptr, Free{std::move(runtime)}) {
    mValue.reset(wrap(mFlag.get(), sizeof(bool)));
}

Tensor::Tensor(std::shared_ptr<const Runtime> runtime, Value* output)
    : mType(Type::Other), mValue(output, Free{runtime}) {
    ShapeInfo* info = nullptr;
    runtime->check(runtime->api().GetTensorTypeAndShape(output, &info));
    const std::shared_ptr<ShapeInfo> owner(info, runtime->api().ReleaseTensorTypeAndShapeInfo);
    Port port = describe(*runtime, info);
    mType = port.type;
    mShape = std::move(port.shape);
}

Value* Tensor::wrap(void* data, std::size_t bytes) {
    const Runtime& runtime = *mValue.get_deleter().runtime;
    Value* value = nullptr;
    runtime.check(runtime.api().CreateTensorWithDataAsOrtValue(runtime.memory(), data, bytes, mShape.data(),
                                                               mShape.size(), static_cast<int>(mType), &value));
    return value;
}

std::size_t Tensor::count() const {
    return product(mShape);
}

const float* Tensor::floats() const {
    if (mType != Type::Float) {
        throw Error("a model's output does not consist of floats");
    }
    const Runtime& runtime = *mValue.get_deleter().runtime;
    void* data = nullptr;
    runtime.check(runtime.api().GetTensorMutableData(mValue.get(), &data));
    return static_cast<const float*>(data);
}

Port describe(const Runtime& runtime, const ShapeInfo* info) {
    const Api& api = runtime.api();
    Port port;
    int type = 0;
    std::size_t dimensions = 0;
    runtime.check(api.GetTensorElementType(info, &type));
    runtime.check(api.GetDimensionsCount(info, &dimensions));
    port.type = known(type);
    port.shape.resize(dimensions);
    runtime.check(api.GetDimensions(info, port.shape.data(), dimensions));
    return port;
}

}  // namespace onnx
