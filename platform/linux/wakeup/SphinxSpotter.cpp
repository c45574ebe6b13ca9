// SPDX-License-Identifier: Apache-2.0
#include "SphinxSpotter.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "process/Owner.h"
#include "speech/ModelManifest.h"
#include "sphinx/MemoryFile.h"
#include "sphinx/Models.h"

namespace wakeup {

namespace {

using Listener = nuance::IWakeupListener;

// The search reports scores in steps of 1024 logarithm units, reduced by this many steps.
constexpr int kScoreOffset = 1500;
constexpr int kScoreStep = 1024;
// The log ratio of wake word to phone loop at which the confidence is 100.
constexpr double kLogCertain = 46;
// The maximum number of combinations of pronunciations to search.
constexpr std::size_t kMaxVariants = 64;

std::vector<std::string> wordsOf(const std::string& wakeWord) {
    std::istringstream in(wakeWord);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

void verify(const std::string& model) {
    process::shared<speech::InstalledModels>().verify(model);
}

// The pronunciations of the wake word's words: from the configuration, or else from the dictionary.
sphinx::Pronunciations pronunciationsOf(const WakeupConfig& config) {
    sphinx::Pronunciations pronunciations;
    std::set<std::string> unknown;
    for (const std::string& word : wordsOf(config.wakeWord)) {
        const auto own = config.pronunciations.find(word);
        if (own != config.pronunciations.end() && !own->second.empty()) {
            pronunciations[word] = own->second;
        } else {
            unknown.insert(word);
        }
    }
    const std::string dictionary = sphinx::modelPath(config.dictionary);
    if (!unknown.empty()) {
        verify(dictionary);
    }
    if (!unknown.empty() && !sphinx::readPronunciations(dictionary, unknown, pronunciations)) {
        throw ConfigFault{Listener::COULD_NOT_FIND_CLC, "no dictionary at " + dictionary};
    }
    for (const std::string& word : unknown) {
        if (pronunciations.count(word) == 0) {
            throw ConfigFault{Listener::WRONG_VOCON_DATA, "no pronunciation of \"" + word + "\""};
        }
    }
    return pronunciations;
}

// One line for each pronunciation of the wake word, because the search supports only one pronunciation per word.
std::string keyphraseLines(const WakeupConfig& config, const sphinx::Pronunciations& pronunciations) {
    std::vector<std::string> ways{""};
    for (const std::string& word : wordsOf(config.wakeWord)) {
        std::vector<std::string> longer;
        for (const std::string& way : ways) {
            for (std::size_t i = 0; i < pronunciations.at(word).size() && longer.size() < kMaxVariants; ++i) {
                longer.push_back(way + sphinx::variantName(word, i) + " ");
            }
        }
        ways = std::move(longer);
    }
    std::ostringstream lines;
    for (const std::string& way : ways) {
        lines << way << "/" << config.threshold << "/\n";
    }
    return lines.str();
}

sphinx::Options decoderOptions(const WakeupConfig& config, const sphinx::MemoryFile& dictionary) {
    const std::string model = sphinx::modelPath(config.model);
    if (!sphinx::isAcousticModel(model)) {
        throw ConfigFault{Listener::COULD_NOT_FIND_ACMOD, "no acoustic model at " + model};
    }
    verify(model);
    return {{"hmm", model}, {"dict", dictionary.path()}, {"cmn", "live"}, {"bestpath", "no"}};
}

}  // namespace

SphinxSpotter::SphinxSpotter(const WakeupConfig& config) try : SphinxSpotter(config, pronunciationsOf(config)) {
} catch (const std::exception& fault) {
    throw ConfigFault{Listener::WRONG_VOCON_DATA, fault.what()};
}

SphinxSpotter::SphinxSpotter(const WakeupConfig& config, const sphinx::Pronunciations& pronunciations)
    : mWakeWord(config.wakeWord),
      mLogThreshold(std::log(config.threshold)),
      mDecoder(decoderOptions(config, sphinx::MemoryFile(sphinx::dictionaryText(pronunciations)))) {
    mDecoder.searchKeyphrases(sphinx::MemoryFile(keyphraseLines(config, pronunciations)).path());
}

void SphinxSpotter::begin() {
    mDecoder.start();
}

std::optional<Detection> SphinxSpotter::accept(const int16_t* samples, std::size_t count) {
    mDecoder.accept(samples, count);
    return detection();
}

std::optional<Detection> SphinxSpotter::end() {
    mDecoder.finish();
    return detection();
}

std::optional<Detection> SphinxSpotter::detection() {
    if (mDecoder.text().empty()) {
        return std::nullopt;
    }
    int best = 0;
    for (const sphinx::Segment& segment : mDecoder.segments()) {
        best = std::max(best, confidence(segment.probability));
    }
    return Detection{mWakeWord, best};
}

int SphinxSpotter::confidence(int probability) const {
    const double logRatio = mDecoder.naturalLog(probability + kScoreOffset) * kScoreStep;
    return static_cast<int>(std::clamp(100 * (logRatio - mLogThreshold) / (kLogCertain - mLogThreshold), 0.0, 100.0));
}

}  // namespace wakeup
