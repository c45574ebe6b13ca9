// SPDX-License-Identifier: Apache-2.0
// The engine reports each fault with its own code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "EngineHarness.h"
#include "process/Owner.h"
#include "sphinx/Decoder.h"
#include "sphinx/Models.h"
#include "status/Problems.h"
#include "support/ThreadRefusal.h"

namespace {

namespace fs = std::filesystem;

using nuance::IWakeupListener;
using testing::ElementsAre;
using testing::IsEmpty;

class AnEngine : public testing::Test {
protected:
    bool loadText(const std::string& text) {
        const ConfigFolder folder(text);
        return mEngine.ctx->Initialize(folder.path(), "vocon_config.json");
    }

    EngineHarness mEngine;
};

TEST_F(AnEngine, WithoutItsDirectoryWarnsThatTheFileCannotBeOpened) {
    EXPECT_FALSE(mEngine.ctx->Initialize("/nowhere/at/all//", "vocon_config.json"));
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::FILE_OPEN_FAILED));
    EXPECT_THAT(mEngine.listener.details[0], testing::HasSubstr("/nowhere/at/all"));
}

TEST_F(AnEngine, WithoutItsFileWarnsThatTheFileCannotBeOpened) {
    const ConfigFolder folder("{}");
    EXPECT_FALSE(mEngine.ctx->Initialize(folder.path(), "other.json"));
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::FILE_OPEN_FAILED));
}

TEST_F(AnEngine, WithAFileThatIsNotJsonReportsAParserError) {
    for (const char* text : {"", "{\"phrase\": ", "[1,2]", "\"hey\"", "{} trailing", "\xff\xfe"}) {
        mEngine.listener.errors.clear();
        EXPECT_FALSE(loadText(text)) << text;
        EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::ERROR_FROM_CONFIG_PARSER)) << text;
    }
}

TEST_F(AnEngine, ThatCannotStartIsAProblemOfTheServiceUntilItStarts) {
    auto& problems = process::shared<status::Problems>();
    EXPECT_FALSE(mEngine.ctx->Initialize("/nowhere", "vocon_config.json"));
    EXPECT_EQ(problems.text(), "No wake engine: cannot use /nowhere/vocon_config.json");
    EXPECT_FALSE(loadText("[1,2]"));
    EXPECT_THAT(problems.text(), testing::StartsWith("No wake engine: "));
    EXPECT_TRUE(loadText("{\"phrase\": \"hey you\"}"));
    EXPECT_EQ(problems.text(), "Ready");
}

TEST_F(AnEngine, WithoutAThreadReportsThatAndCanBeInitializedLater) {
    {
        const ThreadRefusal refusal;
        EngineHarness created;
        EXPECT_FALSE(loadText("{\"phrase\": \"hey you\"}"));
    }
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::NOT_ENOUGH_RESOURCE));
    mEngine.ctx->StartListening();
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::NOT_INITIALIZED));
    EXPECT_TRUE(loadText("{\"phrase\": \"hey you\"}"));
}

TEST_F(AnEngine, WithDeeplyNestedJsonReportsAParserError) {
    EXPECT_FALSE(loadText("{\"phrase\":" + std::string(100000, '[') + std::string(100000, ']') + "}"));
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::ERROR_FROM_CONFIG_PARSER));
}

// A copy of the acoustic model, which a test may damage.
class ModelCopy {
public:
    ModelCopy() : mFolder(mkdtemp(mName)) {
        fs::copy(sphinx::modelPath("en-us/en-us"), mFolder, fs::copy_options::recursive);
    }
    ~ModelCopy() { fs::remove_all(mFolder); }
    ModelCopy(const ModelCopy&) = delete;
    ModelCopy& operator=(const ModelCopy&) = delete;

    std::string configuration() const {
        return R"({"phrase": "hey you", "threshold": 1e-20, "model": ")" + mFolder.string() + "\"}";
    }
    std::vector<fs::path> files() const { return {fs::directory_iterator(mFolder), fs::directory_iterator()}; }
    static void halve(const fs::path& file) { fs::resize_file(file, fs::file_size(file) / 2); }

private:
    char mName[32] = "/tmp/orvane-model-XXXXXX";
    const fs::path mFolder;
};

TEST_F(AnEngine, WithADamagedModelReportsWrongData) {
    for (const char* part : {"mdef", "means", "variances", "transition_matrices", "sendump"}) {
        const ModelCopy model;
        for (const fs::path& file : model.files()) {
            if (file.filename() == part) {
                ModelCopy::halve(file);
            }
        }
        mEngine.listener.errors.clear();
        EXPECT_FALSE(loadText(model.configuration())) << part;
        EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::WRONG_VOCON_DATA)) << part;
    }
    EXPECT_TRUE(loadText(ModelCopy().configuration())) << "an undamaged model loads after the damaged ones";
}

TEST_F(AnEngine, KeepsItsModelWhenTheFilesAreCutOff) {
    const ModelCopy model;
    ASSERT_TRUE(loadText(model.configuration()));
    for (const fs::path& file : model.files()) {
        ModelCopy::halve(file);
    }
    mEngine.listen();
    mEngine.feed.add(
        speech::join({speech::silence(0.5), speech::say(speech::kVoices[0], "hey you"), speech::silence(1)}));
    EXPECT_TRUE(mEngine.listener.waitForWakeups(1));
    EXPECT_THAT(mEngine.listener.errors, IsEmpty());
}

TEST(ADecoder, ThrowsWhenMemoryRunsOut) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";  // a heap without free memory
    const auto loadWithoutMemory = [] {
        const sphinx::Options options{{"hmm", sphinx::modelPath("en-us/en-us")}};
        const sphinx::Decoder first(options);
        rlimit addresses{};
        getrlimit(RLIMIT_AS, &addresses);
        std::ifstream statm("/proc/self/statm");
        statm >> addresses.rlim_cur;
        addresses.rlim_cur = addresses.rlim_cur * 4096 + (2 << 20);
        setrlimit(RLIMIT_AS, &addresses);
        try {
            const sphinx::Decoder second(options);
        } catch (const std::exception&) {
            _exit(7);
        }
        _exit(0);
    };
    EXPECT_EXIT(loadWithoutMemory(), testing::ExitedWithCode(7), "");
}

TEST_F(AnEngine, WithoutAWakeWordWarns) {
    EXPECT_FALSE(loadText("{}"));
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::WAKEUP_WORD_NOT_SET));
}

TEST_F(AnEngine, WithAnUnknownKeyWarnsAndIsInitialized) {
    EXPECT_TRUE(loadText(R"({"phrase": "hey you", "treshold": 1e-20})"));
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_KEY));
    EXPECT_EQ(mEngine.listener.details[0], "treshold");
}

TEST_F(AnEngine, WithAValueOutOfRangeWarnsAndUsesTheDefault) {
    for (const char* value : {"0", "-1", "2", "1e-90", "\"1e-20\"", "null", "[1]"}) {
        mEngine.listener.warnings.clear();
        EXPECT_TRUE(loadText(std::string(R"({"phrase": "hey you", "threshold": )") + value + "}")) << value;
        EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_VALUE)) << value;
    }
}

TEST_F(AnEngine, WithAPronunciationOfUnknownPhonesUsesTheDictionary) {
    EXPECT_TRUE(loadText(R"({"phrase": "hey you", "pronunciations": {"hey": ["XX QQ"]}})"));
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::INVALID_CONFIG_VALUE));
}

TEST_F(AnEngine, WithoutAnAcousticModelReportsAnError) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey you", "model": "/nowhere"})"));
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::COULD_NOT_FIND_ACMOD));
}

TEST_F(AnEngine, WithoutTheDictionaryThatItNeedsReportsAnError) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey you", "dictionary": "/nowhere.dict"})"));
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::COULD_NOT_FIND_CLC));
}

TEST_F(AnEngine, NeedsNoDictionaryIfTheConfigurationHasEveryPronunciation) {
    EXPECT_TRUE(loadText(
        R"({"phrase": "hey you", "dictionary": "/nowhere", "pronunciations": {"hey": ["HH EY"], "you": ["Y UW"]}})"));
    EXPECT_THAT(mEngine.listener.errors, IsEmpty());
}

// A pipe can be read only once.
TEST_F(AnEngine, ReadsTheDictionaryOnce) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const std::string words = "hey HH EY\nyou Y UW\n";
    ASSERT_EQ(write(ends[1], words.data(), words.size()), static_cast<ssize_t>(words.size()));
    close(ends[1]);
    const std::string path = "/proc/self/fd/" + std::to_string(ends[0]);
    EXPECT_TRUE(loadText(R"({"phrase": "hey you", "dictionary": ")" + path + R"("})"));
    close(ends[0]);
    EXPECT_THAT(mEngine.listener.errors, IsEmpty());
}

TEST_F(AnEngine, WithAWordWithoutAPronunciationReportsWrongData) {
    EXPECT_FALSE(loadText(R"({"phrase": "hey qzxqzx"})"));
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::WRONG_VOCON_DATA));
}

TEST_F(AnEngine, NotInitializedWarnsWhenItIsStartedOrCanceled) {
    mEngine.listen();
    EXPECT_FALSE(mEngine.ctx->IsListening());
    mEngine.ctx->CancelListening();
    EXPECT_THAT(mEngine.listener.warnings,
                ElementsAre(IWakeupListener::NOT_INITIALIZED, IWakeupListener::NOT_INITIALIZED));
}

TEST_F(AnEngine, WithoutAudioInputWarnsWhenItIsStarted) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    mEngine.ctx->StartListening();
    EXPECT_FALSE(mEngine.ctx->IsListening());
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::AUDIOIN_NOT_ATTACHED));
}

TEST_F(AnEngine, StartedTwiceWarns) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    mEngine.listen();
    mEngine.ctx->StartListening();
    EXPECT_TRUE(mEngine.ctx->IsListening());
    EXPECT_THAT(mEngine.listener.warnings, ElementsAre(IWakeupListener::ALREADY_LISTENING));
}

TEST_F(AnEngine, InitializedWhileListeningReportsAnErrorAndKeepsListening) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    mEngine.listen();
    EXPECT_FALSE(mEngine.load("ENU", "vexal"));
    EXPECT_TRUE(mEngine.ctx->IsListening());
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::NOT_IN_PROPER_STATE));
}

TEST_F(AnEngine, WhoseAudioInputDoesNotStartReportsAnErrorAndStopsListening) {
    ASSERT_TRUE(mEngine.load("ENU", "quorbit"));
    mEngine.feed.startResult = -1;
    mEngine.listen();
    ASSERT_TRUE(mEngine.listener.waitFor([&] { return !mEngine.listener.errors.empty(); }));
    EXPECT_THAT(mEngine.listener.errors, ElementsAre(IWakeupListener::ERROR_FROM_USER_CALLBACK));
    EXPECT_FALSE(mEngine.ctx->IsListening());
}

TEST_F(AnEngine, WithoutAListenerReportsNothing) {
    mEngine.ctx->AttachListener(nullptr);
    EXPECT_FALSE(mEngine.ctx->Initialize("/nowhere", "x"));
    mEngine.ctx->StartListening();
    EXPECT_FALSE(mEngine.ctx->IsListening());
    EXPECT_THAT(mEngine.listener.warnings, IsEmpty());
}

}  // namespace
