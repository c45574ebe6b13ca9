// SPDX-License-Identifier: Apache-2.0
#include "Embedder.h"

#include <algorithm>

#include "speech/Dither.h"

namespace wakeup {

namespace {

constexpr std::size_t kStep = 1280;
// A spectrum covers 512 samples and begins 160 samples after the previous one, so the last one of a step needs samples
// of the next step.
constexpr std::size_t kOverlap = 352;
constexpr std::size_t kBands = 32;
constexpr std::size_t kSpectra = 76;
constexpr std::size_t kSpectraPerStep = 8;

// Both models are small, so an arena costs little and saves time.
onnx::Session load(const std::shared_ptr<const onnx::Runtime>& runtime, const std::string& path) {
    onnx::SessionOptions options;
    options.arena = true;
    return {runtime, path, options};
}

onnx::Tensor only(std::vector<onnx::Tensor> results, std::size_t count) {
    if (results.front().count() != count) {
        throw onnx::Error("a wake-word model returned " + std::to_string(results.front().count()) + " numbers, not " +
                          std::to_string(count));
    }
    return std::move(results.front());
}

}  // namespace

Embedder::Embedder(const std::string& directory)
    : mRuntime(onnx::Runtime::open(directory)),
      mSpectrum(load(mRuntime, directory + "/" + kSpectrumModel)),
      mEmbedding(load(mRuntime, directory + "/" + kEmbeddingModel)),
      mSpectra(kSpectra * kBands) {
    std::vector<int16_t> silence(kStep * (kSpectra / kSpectraPerStep + 1) + kOverlap);
    speech::Dither().apply(silence.data(), silence.size());
    accept(silence.data(), silence.size(), [this](const Embedding& embedding) { mOfSilence = embedding; });
    mSpectraOfSilence = mSpectra;
    begin();
}

void Embedder::begin() {
    mSamples.clear();
    mSpectra = mSpectraOfSilence;
}

void Embedder::accept(const int16_t* samples, std::size_t count, const std::function<void(const Embedding&)>& take) {
    mSamples.insert(mSamples.end(), samples, samples + count);
    while (mSamples.size() >= kStep + kOverlap) {
        addSpectra();
        mSamples.erase(mSamples.begin(), mSamples.begin() + kStep);
        take(embed());
    }
}

// The model limits the range of what it gets in one call, so every call gets one step.
void Embedder::addSpectra() {
    const onnx::Tensor input(mRuntime, std::vector<float>(mSamples.begin(), mSamples.begin() + kStep + kOverlap),
                             {1, kStep + kOverlap});
    const onnx::Tensor output = only(mSpectrum.run({{"input", &input}}, {"output"}), kSpectraPerStep * kBands);
    mSpectra.erase(mSpectra.begin(), mSpectra.begin() + kSpectraPerStep * kBands);
    std::transform(output.floats(), output.floats() + output.count(), std::back_inserter(mSpectra),
                   [](float decibels) { return decibels / 10 + 2; });
}

Embedder::Embedding Embedder::embed() {
    const onnx::Tensor input(mRuntime, mSpectra, {1, kSpectra, kBands, 1});
    const onnx::Tensor output = only(mEmbedding.run({{"input_1", &input}}, {"conv2d_19"}), kSize);
    Embedding embedding;
    std::copy_n(output.floats(), kSize, embedding.begin());
    return embedding;
}

}  // namespace wakeup
