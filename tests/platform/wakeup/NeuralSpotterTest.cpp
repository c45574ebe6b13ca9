// SPDX-License-Identifier: Apache-2.0
// The spotter that uses a network, with the fetched models. Without them, these tests are skipped.
#include "wakeup/NeuralSpotter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "Speech.h"
#include "wakeup/Spotters.h"

namespace {

namespace fs = std::filesystem;

using speech::join;
using speech::noise;
using speech::say;
using speech::silence;
using testing::HasSubstr;
using wakeup::Embedder;
using wakeup::NeuralSpotter;
using wakeup::WakeupConfig;

const std::string kModels = ORVANE_DATA "/speech";
const std::string kHead = ORVANE_DATA "/voice/data/wakeword.head";

bool isFetched() {
    try {
        onnx::Runtime::open(kModels);
    } catch (const onnx::Error&) {
        return false;
    }
    return fs::exists(kModels + "/" + Embedder::kEmbeddingModel);
}

WakeupConfig configFor(const std::string& word) {
    WakeupConfig config;
    config.wakeWord = word;
    config.engine = wakeup::Engine::Neural;
    return config;
}

class ANeuralSpotter : public testing::Test {
protected:
    void SetUp() override {
        if (!isFetched()) {
            GTEST_SKIP() << "script/fetch-speech has not fetched the models";
        }
    }

    static std::optional<wakeup::Detection> detectionIn(wakeup::Spotter& spotter, const speech::Samples& samples) {
        spotter.begin();
        for (std::size_t i = 0; i + 256 <= samples.size(); i += 256) {
            if (auto detection = spotter.accept(samples.data() + i, 256)) {
                return detection;
            }
        }
        return spotter.end();
    }
    static std::vector<Embedder::Embedding> embeddingsOf(Embedder& embedder, const speech::Samples& samples,
                                                         std::size_t block) {
        std::vector<Embedder::Embedding> found;
        embedder.begin();
        for (std::size_t i = 0; i < samples.size(); i += block) {
            embedder.accept(samples.data() + i, std::min(block, samples.size() - i),
                            [&](const auto& embedding) { found.push_back(embedding); });
        }
        return found;
    }
    std::string faultWith(const std::string& models, const std::string& head) const {
        try {
            const NeuralSpotter spotter(configFor("hey vexal"), models, head);
        } catch (const std::exception& fault) {
            return fault.what();
        }
        return "";
    }
};

TEST_F(ANeuralSpotter, ComputesTheSameInBlocksAndAtOnce) {
    Embedder embedder(kModels);
    const speech::Samples sound = join({silence(0.5), say("rms", "good morning"), noise(1, 500)});
    const auto atOnce = embeddingsOf(embedder, sound, sound.size());
    ASSERT_GE(atOnce.size(), 20U);
    for (const std::size_t block : {256U, 1000U, 5000U}) {
        EXPECT_EQ(embeddingsOf(embedder, sound, block), atOnce) << block;
    }
}

TEST_F(ANeuralSpotter, ForgetsWhatCameBeforeTheBeginning) {
    Embedder embedder(kModels);
    const speech::Samples sound = say("rms", "good morning");
    const auto first = embeddingsOf(embedder, sound, 256);
    embeddingsOf(embedder, noise(3, 5000), 256);
    EXPECT_EQ(embeddingsOf(embedder, sound, 256), first);
}

TEST_F(ANeuralSpotter, DetectsItsWakeWordOnly) {
    for (const std::string word : {"hey quorbit", "hey vexal"}) {
        const std::string other = word == "hey vexal" ? "hey quorbit" : "hey vexal";
        NeuralSpotter spotter(configFor(word), kModels, kHead);
        for (const std::string voice : {"slt", "rms"}) {
            const auto found = detectionIn(spotter, join({noise(2, 20), say(voice, word), noise(1, 20)}));
            ASSERT_TRUE(found) << word << " " << voice;
            EXPECT_EQ(found->wakeWord, word);
            EXPECT_GE(found->confidence, 0);
            EXPECT_LE(found->confidence, 100);
            EXPECT_FALSE(detectionIn(spotter, join({noise(2, 20), say(voice, other), noise(1, 20)})))
                << word << " " << voice;
        }
    }
}

TEST_F(ANeuralSpotter, DetectsNothingInOtherTalk) {
    NeuralSpotter spotter(configFor("hey quorbit"), kModels, kHead);
    for (const char* text : {"hey robert, wait a bit", "the coffee is ready in five minutes", "hey, over there"}) {
        EXPECT_FALSE(detectionIn(spotter, join({silence(1), say("slt", text), silence(1)}))) << text;
    }
}

TEST_F(ANeuralSpotter, HasTheThresholdOfItsConfiguration) {
    WakeupConfig config = configFor("hey quorbit");
    const speech::Samples sound = join({noise(2, 20), say("rms", "hey quorbit"), noise(1, 20)});
    config.neuralThreshold = 20;
    NeuralSpotter deaf(config, kModels, kHead);
    EXPECT_FALSE(detectionIn(deaf, sound));
    config.neuralThreshold = -20;
    NeuralSpotter eager(config, kModels, kHead);
    EXPECT_TRUE(detectionIn(eager, sound));
}

TEST_F(ANeuralSpotter, DoesNotKnowOtherWakeWords) {
    EXPECT_THROW(NeuralSpotter(configFor("hey you"), kModels, kHead), std::runtime_error);
}

TEST_F(ANeuralSpotter, RefusesAModelThatItWasNotTrainedWithInOneLine) {
    char made[] = "/tmp/orvane-spotter-XXXXXX";
    const std::string directory = mkdtemp(made);
    fs::create_directory(directory + "/wakeword");
    fs::create_symlink(kModels + "/" + Embedder::kSpectrumModel, directory + "/" + Embedder::kSpectrumModel);
    std::ofstream(directory + "/" + Embedder::kEmbeddingModel) << "not a model";
    const std::string fault = faultWith(directory, kHead);
    EXPECT_THAT(fault, HasSubstr(directory + "/" + Embedder::kEmbeddingModel + ": not the model"));
    EXPECT_EQ(fault.find('\n'), std::string::npos);
    fs::remove_all(directory);
}

TEST(ASpotter, UsesPocketSphinxWithoutTheModelsOrTheHead) {
    for (const wakeup::SpotterPaths& paths :
         {wakeup::SpotterPaths{"/nowhere", kHead}, wakeup::SpotterPaths{kModels, "/nowhere"}}) {
        WakeupConfig config = configFor("hey vexal");
        config.pronunciations = {{"vexal", {"V EH K S AH L"}}};
        const auto spotter = wakeup::makeSpotter(config, paths);
        spotter->begin();
        bool found = false;
        const speech::Samples sound = join({silence(1), say("slt", "hey vexal"), silence(1)});
        for (std::size_t i = 0; i + 256 <= sound.size(); i += 256) {
            found = found || spotter->accept(sound.data() + i, 256);
        }
        EXPECT_TRUE(found);
    }
}

}  // namespace
