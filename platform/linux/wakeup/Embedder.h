// SPDX-License-Identifier: Apache-2.0
// Turns a stream of samples into embeddings of speech: one for each step of 80 ms, of the last 0.8 s. The models come
// with script/fetch-speech.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "onnx/Session.h"

namespace wakeup {

class Embedder {
public:
    static constexpr std::size_t kSize = 96;
    using Embedding = std::array<float, kSize>;

    // Loads the models below the directory, which takes about 0.1 s. Throws onnx::Error.
    explicit Embedder(const std::string& directory);

    // Forgets the previous samples: silence came before the next one.
    void begin();
    // Calls `take` for each step that the samples complete. They can have any length.
    void accept(const int16_t* samples, std::size_t count, const std::function<void(const Embedding&)>& take);
    const Embedding& ofSilence() const { return mOfSilence; }

    // Paths of the models below the directory.
    static constexpr const char* kSpectrumModel = "wakeword/melspectrogram.onnx";
    static constexpr const char* kEmbeddingModel = "wakeword/embedding.onnx";

private:
    void addSpectra();
    Embedding embed();

    std::shared_ptr<const onnx::Runtime> mRuntime;
    onnx::Session mSpectrum;
    onnx::Session mEmbedding;
    std::vector<float> mSamples;  // not yet used, and those that the next spectra use again
    std::vector<float> mSpectra;  // the last 76
    std::vector<float> mSpectraOfSilence;
    Embedding mOfSilence{};
};

}  // namespace wakeup
