// SPDX-License-Identifier: Apache-2.0
#include "wakeup/WakeupConfig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using wakeup::parseWakeupConfig;
using wakeup::WakeupConfig;

TEST(AWakeConfiguration, ContainsTheWakeWordItsPronunciationsTheModelAndTheThreshold) {
    int warnings = 0;
    const WakeupConfig config = parseWakeupConfig(
        R"({"phrase": "hey you", "pronunciations": {"you": ["Y UW", "Y AH"]}, "model": "de/de", "dictionary": "d",
            "threshold": 1e-30, "speech_margin_db": 12})",
        [&](auto, auto&) { ++warnings; });
    EXPECT_EQ(config.wakeWord, "hey you");
    EXPECT_THAT(config.pronunciations.at("you"), testing::ElementsAre("Y UW", "Y AH"));
    EXPECT_EQ(config.model, "de/de");
    EXPECT_EQ(config.dictionary, "d");
    EXPECT_DOUBLE_EQ(config.threshold, 1e-30);
    EXPECT_DOUBLE_EQ(config.speechMarginDb, 12);
    EXPECT_EQ(warnings, 0);
}

TEST(AWakeConfiguration, SelectsTheEngineAndTheThresholdOfTheNetwork) {
    int warnings = 0;
    const auto warn = [&](auto, auto&) { ++warnings; };
    EXPECT_EQ(parseWakeupConfig("{}", warn).engine, wakeup::Engine::Sphinx);
    EXPECT_FALSE(parseWakeupConfig("{}", warn).neuralThreshold);
    const WakeupConfig config = parseWakeupConfig(R"({"engine": "neural", "neural_threshold": -2.5})", warn);
    EXPECT_EQ(config.engine, wakeup::Engine::Neural);
    EXPECT_EQ(config.neuralThreshold, -2.5);
    EXPECT_EQ(warnings, 0);
    EXPECT_EQ(parseWakeupConfig(R"({"engine": "magic", "neural_threshold": 21})", warn).engine, wakeup::Engine::Sphinx);
    EXPECT_EQ(warnings, 2);
}

TEST(AWakeConfiguration, KeepsTheDefaultOfEveryValueThatIsWrong) {
    int warnings = 0;
    const WakeupConfig config =
        parseWakeupConfig(R"({"phrase": 3, "pronunciations": [], "model": "", "threshold": 7, "speech_margin_db": -1})",
                          [&](auto code, auto&) { warnings += code == nuance::IWakeupListener::INVALID_CONFIG_VALUE; });
    const WakeupConfig fresh;
    EXPECT_EQ(config.wakeWord, fresh.wakeWord);
    EXPECT_EQ(config.model, fresh.model);
    EXPECT_DOUBLE_EQ(config.threshold, fresh.threshold);
    EXPECT_DOUBLE_EQ(config.speechMarginDb, fresh.speechMarginDb);
    EXPECT_EQ(warnings, 5);
}

}  // namespace
