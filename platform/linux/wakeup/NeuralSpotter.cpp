// SPDX-License-Identifier: Apache-2.0
#include "NeuralSpotter.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "gio/Checksum.h"

namespace wakeup {

namespace {

// The head's weights mean something only together with the models that it was trained with.
void verify(const std::string& directory, const std::map<std::string, std::string>& models) {
    for (const auto& [name, checksum] : models) {
        const std::string path = directory + "/" + name;
        std::ifstream in(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        if (!in) {
            throw std::runtime_error(path + ": cannot be read");
        }
        if (gio::sha256(bytes) != checksum) {
            throw std::runtime_error(path + ": not the model that the wake words were trained with");
        }
    }
}

Head::Word wordOf(const Head& head, const WakeupConfig& config) {
    auto word = head.find(config.wakeWord);
    if (!word) {
        throw std::runtime_error("the network was not trained for \"" + config.wakeWord + "\"");
    }
    if (config.neuralThreshold) {
        word->threshold = *config.neuralThreshold;
        word->certain = std::max(word->certain, word->threshold + 1);
    }
    return *word;
}

Embedder verifiedEmbedder(const Head& head, const std::string& models) {
    if (head.inputs() % Embedder::kSize != 0) {
        throw std::runtime_error("the head does not fit the embeddings");
    }
    verify(models, head.models());
    return Embedder(models);
}

}  // namespace

NeuralSpotter::NeuralSpotter(const WakeupConfig& config, const std::string& models, const std::string& head)
    : mWakeWord(config.wakeWord),
      mHead(head),
      mWord(wordOf(mHead, config)),
      mEmbedder(verifiedEmbedder(mHead, models)) {
    begin();
}

void NeuralSpotter::begin() {
    mEmbedder.begin();
    mWindow.clear();
    while (mWindow.size() < mHead.inputs()) {
        mWindow.insert(mWindow.end(), mEmbedder.ofSilence().begin(), mEmbedder.ofSilence().end());
    }
}

std::optional<Detection> NeuralSpotter::accept(const int16_t* samples, std::size_t count) {
    std::optional<Detection> best;
    mEmbedder.accept(samples, count, [&](const Embedder::Embedding& embedding) {
        mWindow.erase(mWindow.begin(), mWindow.begin() + Embedder::kSize);
        mWindow.insert(mWindow.end(), embedding.begin(), embedding.end());
        const float found = score();
        if (found >= mWord.threshold && (!best || confidence(found) > best->confidence)) {
            best = Detection{mWakeWord, confidence(found)};
        }
    });
    return best;
}

float NeuralSpotter::score() {
    return mHead.scores(mWindow)[mWord.output];
}

int NeuralSpotter::confidence(float score) const {
    return static_cast<int>(
        std::clamp(100 * (score - mWord.threshold) / (mWord.certain - mWord.threshold), 0.0, 100.0));
}

}  // namespace wakeup
