// SPDX-License-Identifier: Apache-2.0
#include "Head.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <numeric>
#include <stdexcept>

#include "gio/Checksum.h"
#include "json/BoundedJson.h"

namespace wakeup {

namespace {

constexpr std::size_t kMaxBytes = std::size_t{1} << 20;
constexpr std::size_t kMaxWidth = 4096;
constexpr float kEpsilon = 1e-5F;

// Takes numbers from the weights, which are little-endian like every machine that we build for.
class Numbers {
public:
    explicit Numbers(const std::string& bytes) : mBytes(bytes) {}
    std::vector<float> take(std::size_t count) {
        if (count > (mBytes.size() - mPosition) / sizeof(float)) {
            throw std::runtime_error("too short");
        }
        std::vector<float> numbers(count);
        std::memcpy(numbers.data(), mBytes.data() + mPosition, count * sizeof(float));
        mPosition += count * sizeof(float);
        return numbers;
    }

private:
    const std::string& mBytes;
    std::size_t mPosition = 0;
};

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (!in || bytes.size() > kMaxBytes) {
        throw std::runtime_error(in ? "too long" : "cannot be read");
    }
    return bytes;
}

void normalize(std::vector<float>& numbers, const std::vector<float>& scale, const std::vector<float>& shift) {
    const auto count = static_cast<float>(numbers.size());
    const float mean = std::accumulate(numbers.begin(), numbers.end(), 0.0F) / count;
    float variance = 0;
    for (const float number : numbers) {
        variance += (number - mean) * (number - mean) / count;
    }
    const float factor = 1 / std::sqrt(variance + kEpsilon);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = std::max(0.0F, (numbers[i] - mean) * factor * scale[i] + shift[i]);
    }
}

}  // namespace

Head::Head(const std::string& path) try {
    const std::string bytes = readAll(path);
    const std::size_t end = bytes.find('\n');
    if (end == std::string::npos) {
        throw std::runtime_error("has no header");
    }
    readHeader(bytes.substr(0, end), bytes.substr(end + 1));
} catch (const std::exception& fault) {
    throw std::runtime_error(path + ": " + fault.what());
}

void Head::readHeader(const std::string& text, const std::string& weights) {
    const nlohmann::json header = json::parseBounded(text);
    if (header.at("weights_sha256").get<std::string>() != gio::sha256(weights)) {
        throw std::runtime_error("damaged: its checksum is wrong");
    }
    header.at("models").get_to(mModels);
    for (const nlohmann::json& word : header.at("words")) {
        const Word added{mWords.size(), word.at("threshold").get<double>(), word.at("certain").get<double>()};
        mWords[word.at("phrase").get<std::string>()] = added;
    }
    readLayers(header.at("layers").get<std::vector<std::size_t>>(), weights);
}

void Head::readLayers(const std::vector<std::size_t>& sizes, const std::string& weights) {
    const bool wide = std::any_of(sizes.begin(), sizes.end(), [](auto size) { return size == 0 || size > kMaxWidth; });
    if (sizes.size() < 2 || wide || sizes.back() != mWords.size()) {
        throw std::runtime_error("its layers do not fit");
    }
    Numbers numbers(weights);
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        const bool normalized = i + 1 < sizes.size();
        Layer layer{sizes[i - 1], sizes[i], numbers.take(sizes[i - 1] * sizes[i]), numbers.take(sizes[i]), {}, {}};
        layer.scale = numbers.take(normalized ? sizes[i] : 0);
        layer.shift = numbers.take(normalized ? sizes[i] : 0);
        mLayers.push_back(std::move(layer));
    }
}

std::optional<Head::Word> Head::find(const std::string& wakeWord) const {
    const auto found = mWords.find(wakeWord);
    return found == mWords.end() ? std::nullopt : std::optional(found->second);
}

std::vector<float> Head::scores(const std::vector<float>& window) const {
    std::vector<float> numbers = window;
    for (const Layer& layer : mLayers) {
        numbers = apply(layer, numbers);
    }
    return numbers;
}

std::vector<float> Head::apply(const Layer& layer, const std::vector<float>& input) {
    std::vector<float> output = layer.bias;
    for (std::size_t row = 0; row < layer.outputs; ++row) {
        const float* weights = layer.weights.data() + row * layer.inputs;
        output[row] = std::inner_product(input.begin(), input.end(), weights, output[row]);
    }
    if (!layer.scale.empty()) {
        normalize(output, layer.scale, layer.shift);
    }
    return output;
}

}  // namespace wakeup
