// SPDX-License-Identifier: Apache-2.0
// The last layers of the wake-word network. training/ makes their file; training/README.md describes its format.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wakeup {

class Head {
public:
    // Reads the file. Throws std::runtime_error with one line if it is missing, truncated, or modified.
    explicit Head(const std::string& path);

    // How certain it must be of a wake word.
    struct Word {
        std::size_t output = 0;
        double threshold = 0;  // the least score of a detection
        double certain = 0;    // the score of a clear recording, above the threshold
    };
    // Nothing if the head does not know the wake word.
    std::optional<Word> find(const std::string& wakeWord) const;
    // The SHA-256 of each model that it was trained with, by path.
    const std::map<std::string, std::string>& models() const { return mModels; }

    std::size_t inputs() const { return mLayers.front().inputs; }
    // One score for each wake word; 0 means equal odds. The window has inputs() numbers.
    std::vector<float> scores(const std::vector<float>& window) const;

private:
    struct Layer {
        std::size_t inputs = 0;
        std::size_t outputs = 0;
        std::vector<float> weights;  // one row for each output
        std::vector<float> bias;
        std::vector<float> scale;  // of the normalization; empty in the last layer
        std::vector<float> shift;
    };

    void readHeader(const std::string& text, const std::string& weights);
    void readLayers(const std::vector<std::size_t>& sizes, const std::string& weights);
    static std::vector<float> apply(const Layer& layer, const std::vector<float>& input);

    std::map<std::string, Word> mWords;
    std::map<std::string, std::string> mModels;
    std::vector<Layer> mLayers;
};

}  // namespace wakeup
