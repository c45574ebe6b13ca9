// SPDX-License-Identifier: Apache-2.0
// A spotter that uses a network: embeddings of speech, and a head that was trained for the wake words.
#pragma once

#include <deque>

#include "Embedder.h"
#include "Head.h"
#include "Spotter.h"
#include "WakeupConfig.h"
#include "speech/MemoryReturn.h"

namespace wakeup {

class NeuralSpotter final : public Spotter {
public:
    // Loads ONNX Runtime, the models of `models`, and the head. Throws std::exception, with one line, if one of them is
    // missing or modified, or if the head does not know the wake word.
    NeuralSpotter(const WakeupConfig& config, const std::string& models, const std::string& head);

    void begin() override;
    std::optional<Detection> accept(const int16_t* samples, std::size_t count) override;
    std::optional<Detection> end() override { return std::nullopt; }

private:
    float score();
    int confidence(float score) const;

    const speech::MemoryReturn mMemoryReturn;
    const std::string mWakeWord;
    const Head mHead;
    Head::Word mWord;
    Embedder mEmbedder;
    std::vector<float> mWindow;  // the last 16 embeddings, the oldest first
};

}  // namespace wakeup
