// SPDX-License-Identifier: Apache-2.0
// The course of a recognition session, from the start to Ready.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "SphinxMemory.h"
#include "VoiceHarness.h"
#include "process/Owner.h"
#include "status/Problems.h"
#include "support/ThreadRefusal.h"

namespace {

using speech::join;
using speech::noise;
using speech::say;
using speech::silence;
using testing::HasSubstr;

class ARecognitionSession : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mVoice.makeReady());
        mVoice.events.clear();
    }

    void say(const std::string& sentence) { microphone::speak(join({silence(0.4), speech::say("rms", sentence)})); }
    bool start(vc_recognition_mode_e mode = VC_RECOGNITION_MODE_STOP_BY_SILENCE) {
        vc_mgr_set_recognition_mode(mode);
        return vc_mgr_start(false) == VC_ERROR_NONE && mVoice.runUntilEvent("service 1->2");
    }
    // All events except the partial results, whose number depends on the pace of the speech.
    Events course() const {
        Events course;
        for (const std::string& event : mVoice.events) {
            if (event.rfind("partial ", 0) != 0) {
                course.push_back(event);
            }
        }
        return course;
    }

    VoiceHarness mVoice;
};

TEST_F(ARecognitionSession, RunsFromReadyThroughRecordingAndProcessingToReady) {
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_THAT(course(), testing::ElementsAre("service 1->2", "speech", "service 2->3", "final what time is it",
                                               "result what time is it", "service 3->1"));
    EXPECT_FALSE(microphone::isOpen());
}

TEST_F(ARecognitionSession, ReportsPartialResultsWhileThePersonSpeaks) {
    say("show me the recipe for tomato soup");
    ASSERT_TRUE(start(VC_RECOGNITION_MODE_MANUAL));
    ASSERT_TRUE(mVoice.runUntil([&] { return !mVoice.firstWith("partial ").empty(); }));
    EXPECT_EQ(mVoice.count("speech"), 1);
    EXPECT_EQ(mVoice.count("service 2->3"), 0);
    EXPECT_TRUE(microphone::isOpen());
}

// The recognizer is lost when memory runs out, and the next session loads another one.
TEST_F(ARecognitionSession, ThatRunsOutOfMemoryIsAProblemOfTheServiceUntilTheNextOne) {
    auto& problems = process::shared<status::Problems>();
    say("open the notes");
    ASSERT_TRUE(start(VC_RECOGNITION_MODE_MANUAL));
    ASSERT_TRUE(mVoice.runUntil([&] { return !mVoice.firstWith("partial ").empty(); }));
    sphinxmemory::limit(0);
    say("open the notes");
    ASSERT_TRUE(mVoice.runUntilEvent("service 2->1"));
    EXPECT_THAT(problems.text(), testing::StartsWith("No speech recognizer for en_US: "));

    ASSERT_TRUE(start());
    EXPECT_TRUE(mVoice.runUntilEvent("service 2->1", 2)) << "memory is still short";
    EXPECT_THAT(problems.text(), testing::StartsWith("No speech recognizer for en_US"));

    sphinxmemory::limit(-1);
    microphone::reset();
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    EXPECT_TRUE(mVoice.runUntilEvent("result what time is it"));
    EXPECT_EQ(problems.text(), "Ready");
}

TEST_F(ARecognitionSession, InManualModeContinuesThroughSilenceUntilItIsStopped) {
    say("open the notes");
    microphone::speak(silence(4));
    ASSERT_TRUE(start(VC_RECOGNITION_MODE_MANUAL));
    ASSERT_TRUE(mVoice.runUntilEvent("partial open the notes"));
    mVoice.settle();
    EXPECT_EQ(mVoice.count("service 2->3"), 0);
    EXPECT_EQ(vc_mgr_stop(), VC_ERROR_NONE);
    microphone::speak(silence(0.1));
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_EQ(mVoice.count("result open the notes"), 1);
}

TEST_F(ARecognitionSession, CanceledWhileRecordingHasNoResultAndIsReadyAgain) {
    say("open the notes");
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("speech"));
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_NONE);
    EXPECT_EQ(mVoice.count("service 2->1"), 0) << "the main loop reports it after the call";
    ASSERT_TRUE(mVoice.runUntilEvent("service 2->1"));
    microphone::fallSilent();
    mVoice.events.clear();
    microphone::reset();
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_EQ(mVoice.count("result what time is it"), 1);
    EXPECT_EQ(mVoice.firstWith("result open"), "");
}

TEST_F(ARecognitionSession, CanceledBeforeTheMicrophoneIsOpenReportsNothing) {
    ASSERT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_NONE);
    mVoice.settle();
    EXPECT_THAT(mVoice.events, testing::IsEmpty());
}

TEST_F(ARecognitionSession, CanceledAndStartedAtOnceRecordsAgain) {
    ASSERT_TRUE(start());
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_NONE);
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
    ASSERT_TRUE(mVoice.runUntilEvent("service 1->2", 2));
    EXPECT_THAT(course(), testing::ElementsAre("service 1->2", "service 2->1", "service 1->2"));
}

TEST_F(ARecognitionSession, CanceledWhileProcessingHasNoResult) {
    mVoice.onEvent = [](const std::string& event) {
        if (event == "service 2->3") {
            vc_mgr_cancel();
        }
    };
    say("open the notes");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    mVoice.onEvent = nullptr;
    microphone::reset();
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1", 2));
    EXPECT_EQ(mVoice.firstWith("result "), "what time is it");
}

TEST_F(ARecognitionSession, CanceledInTheResultCallbackBecomesReadyOnce) {
    mVoice.inResult = [](vc_cmd_list_h) {
        EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_NONE);
        return false;
    };
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    mVoice.settle();
    EXPECT_EQ(mVoice.count("service 3->1"), 1);
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_INVALID_STATE);
}

TEST_F(ARecognitionSession, OfNoiseWithoutSpeechIsRejectedWhenStopped) {
    microphone::speak(noise(2, 20));
    ASSERT_TRUE(start(VC_RECOGNITION_MODE_MANUAL));
    vc_mgr_stop();
    microphone::speak(noise(0.1, 20));
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_THAT(course(), testing::ElementsAre("service 1->2", "service 2->3", "rejected", "service 3->1"));
}

TEST_F(ARecognitionSession, EndsInALoudRoomWithoutSilence) {
    speech::Samples sound = join({silence(1), speech::say("rms", "open the music player"), silence(9)});
    const speech::Samples hum = noise(20, 250);
    for (std::size_t i = 16000; i < sound.size(); ++i) {
        sound[i] = static_cast<int16_t>(sound[i] + hum[i]);
    }
    microphone::speak(sound);
    ASSERT_TRUE(start());
    EXPECT_TRUE(mVoice.runUntilEvent("service 2->3"));
}

// A rustle 12 dB above the room noise counts as an utterance in a quiet room, but not while loud media plays.
TEST_F(ARecognitionSession, NeedsLouderSpeechWhenTheMediaIsLouder) {
    const auto recognizesWhatFollows = [this](const char* volume) {
        vc_mgr_set_private_data("MediaVolume", volume);
        mVoice.events.clear();
        microphone::speak(join({noise(1, 40), noise(1, 160), noise(1.5, 40), speech::say("rms", "what time is it")}));
        microphone::fallSilent();
        EXPECT_TRUE(start());
        EXPECT_TRUE(mVoice.runUntilEvent("service 3->1"));
        microphone::reset();
        return mVoice.firstWith("result ") == "what time is it";
    };
    EXPECT_FALSE(recognizesWhatFollows("0"));
    EXPECT_TRUE(recognizesWhatFollows("15"));
    EXPECT_FALSE(recognizesWhatFollows("5"));
}

TEST_F(ARecognitionSession, CannotBeStartedTwice) {
    ASSERT_TRUE(start());
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_INVALID_STATE);
}

TEST_F(ARecognitionSession, CannotBeStoppedOrCanceledUnlessItRuns) {
    EXPECT_EQ(vc_mgr_stop(), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_INVALID_STATE);
}

TEST_F(ARecognitionSession, WithoutAMicrophoneReportsAnErrorBetweenRecordingAndReady) {
    microphone::disappear();
    std::string message;
    mVoice.onEvent = [&](const std::string& event) {
        if (event == "service 2->1") {
            message = mVoice.errorMessage();
        }
    };
    ASSERT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
    ASSERT_TRUE(mVoice.runUntilEvent("service 2->1"));
    EXPECT_THAT(mVoice.events, testing::ElementsAre("service 1->2", "error -905", "service 2->1"));
    EXPECT_EQ(message, "No sound source");
}

TEST_F(ARecognitionSession, WhoseMicrophoneFailsReportsAnError) {
    ASSERT_TRUE(start());
    microphone::breakDown();
    ASSERT_TRUE(mVoice.runUntilEvent("service 2->1"));
    EXPECT_EQ(mVoice.count("error -905"), 1);
    EXPECT_EQ(mVoice.errorMessage(), "The sound source has failed");
    microphone::reset();
    EXPECT_TRUE(start());
}

TEST_F(ARecognitionSession, WithoutAThreadDoesNotStartAndCanBeStartedLater) {
    {
        const ThreadRefusal refusal;
        EXPECT_EQ(vc_mgr_start(false), VC_ERROR_OPERATION_FAILED);
        EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_INVALID_STATE);
    }
    EXPECT_TRUE(start());
}

TEST_F(ARecognitionSession, WithoutClientsReportsOneCommandOfTheService) {
    say("read out the recipe");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_THAT(mVoice.pids, testing::ElementsAre(getpid()));
    ASSERT_EQ(mVoice.jsons.size(), 1U);
    EXPECT_THAT(mVoice.jsons[0], HasSubstr("\"agent\":\"Recipe\""));
}

TEST_F(ARecognitionSession, EndsWhenTheManagerIsDeinitialized) {
    say("open the notes");
    ASSERT_TRUE(start());
    EXPECT_EQ(vc_mgr_deinitialize(), VC_ERROR_NONE);
    EXPECT_FALSE(microphone::isOpen());
    mVoice.settle();
    EXPECT_EQ(mVoice.firstWith("result"), "");
}

TEST_F(ARecognitionSession, ContinuesWhileTheRecognizerIsReloaded) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(vc_mgr_set_private_data("Request", "reloadEngine"), VC_ERROR_NONE);
    }
    say("what time is it");
    microphone::fallSilent();
    ASSERT_TRUE(start());
    vc_mgr_set_private_data("Request", "reloadEngine");
    ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
    EXPECT_EQ(mVoice.count("result what time is it"), 1);
    EXPECT_EQ(mVoice.firstWith("state "), "");
}

TEST_F(ARecognitionSession, IsImpossibleAfterAReloadWithoutAThreadUntilTheNextReload) {
    auto& problems = process::shared<status::Problems>();
    {
        const ThreadRefusal refusal;
        EXPECT_EQ(vc_mgr_set_private_data("Request", "reloadEngine"), VC_ERROR_NONE);
    }
    ASSERT_TRUE(mVoice.runUntilEvent("state 2->1"));
    EXPECT_EQ(mVoice.count("error -904"), 1);
    EXPECT_EQ(problems.text(), "No speech recognizer for en_US");
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_set_private_data("Request", "reloadEngine"), VC_ERROR_NONE);
    ASSERT_TRUE(mVoice.runUntilEvent("state 1->2"));
    EXPECT_EQ(problems.text(), "Ready");
    EXPECT_TRUE(start());
}

TEST_F(ARecognitionSession, IsImpossibleIfTheSentenceFileCannotBeRead) {
    const std::string file = testing::TempDir() + "/sentences.txt";
    std::ofstream(file) << "[Clock / Show Time]\nwhat time is it\n";
    ASSERT_EQ(vc_mgr_set_preloaded_commands_from_file(file.c_str()), VC_ERROR_NONE);
    mVoice.settle();
    ASSERT_EQ(unlink(file.c_str()), 0);
    EXPECT_EQ(vc_mgr_set_private_data("Request", "reloadEngine"), VC_ERROR_NONE);
    ASSERT_TRUE(mVoice.runUntilEvent("state 2->1"));
    EXPECT_EQ(mVoice.count("error -904"), 1);
}

TEST_F(ARecognitionSession, RemembersAQuestionUntilTheDialogueIsReset) {
    const auto recognize = [&](const std::string& sentence) {
        mVoice.events.clear();
        microphone::reset();
        say(sentence);
        microphone::fallSilent();
        EXPECT_TRUE(start());
        EXPECT_TRUE(mVoice.runUntilEvent("service 3->1"));
    };
    recognize("set a timer");
    EXPECT_EQ(mVoice.count("result set a timer"), 1);
    recognize("ten minutes");
    EXPECT_EQ(mVoice.count("result ten minutes"), 1);
    recognize("set a timer");
    EXPECT_EQ(vc_mgr_set_private_data("Request", "resetSession"), VC_ERROR_NONE);
    recognize("ten minutes");
    EXPECT_EQ(mVoice.count("rejected"), 1);
}

TEST(AManager, BecomesReadyAfterPreparing) {
    VoiceHarness room;
    ASSERT_EQ(vc_setting_initialize(), VC_ERROR_NONE);
    ASSERT_EQ(vc_mgr_initialize(), VC_ERROR_NONE);
    room.setCallbacks();
    ASSERT_EQ(vc_mgr_prepare(), VC_ERROR_NONE);
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_INVALID_STATE);
    EXPECT_THAT(room.events, testing::IsEmpty());
    ASSERT_TRUE(room.runUntilEvent("service 0->1"));
    EXPECT_THAT(room.events, testing::ElementsAre("state 1->2", "service 0->1"));
}

TEST(AManager, WithoutAModelReportsAnErrorAndDoesNotBecomeReady) {
    VoiceHarness room;
    setenv("ORVANE_MODEL_ROOT", "/nowhere", 1);
    vc_setting_initialize();
    vc_mgr_initialize();
    room.setCallbacks();
    EXPECT_EQ(vc_mgr_prepare(), VC_ERROR_NONE);
    EXPECT_TRUE(room.runUntilEvent("error -904"));
    unsetenv("ORVANE_MODEL_ROOT");
    EXPECT_EQ(room.errorMessage(), "No speech recognizer");
    EXPECT_THAT(process::shared<status::Problems>().text(), testing::StartsWith("No speech recognizer for "));
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_INVALID_STATE);
}

TEST(AManager, IsNotReadyWhileItsModelIsMissing) {
    VoiceHarness room;
    ASSERT_TRUE(room.makeReady());
    room.runUntilEvent("never", 0);
    setenv("ORVANE_MODEL_ROOT", "/nowhere", 1);
    vc_setting_deinitialize();
    vc_setting_initialize();
    vc_mgr_set_private_data("Request", "reloadEngine");
    EXPECT_TRUE(room.runUntilEvent("state 2->1"));
    EXPECT_EQ(room.count("error -904"), 1);
    unsetenv("ORVANE_MODEL_ROOT");
    vc_setting_deinitialize();
    vc_setting_initialize();
    vc_mgr_set_private_data("Request", "reloadEngine");
    EXPECT_TRUE(room.runUntilEvent("state 1->2", 2));
}

TEST(AManager, SupportsTheLanguagesWhoseModelsAreInstalled) {
    VoiceHarness room;
    vc_setting_initialize();
    vc_mgr_initialize();
    std::vector<std::string> languages;
    vc_mgr_foreach_supported_languages(
        [](const char* language, void* data) noexcept {
            static_cast<std::vector<std::string>*>(data)->emplace_back(language);
            return true;
        },
        &languages);
    EXPECT_THAT(languages, testing::ElementsAre("en_US", "en_GB"));
    EXPECT_EQ(vc_setting_set_language("fr_FR"), VC_ERROR_INVALID_LANGUAGE);
    EXPECT_EQ(vc_setting_set_language(""), VC_ERROR_INVALID_LANGUAGE);
    EXPECT_EQ(vc_setting_set_language(nullptr), VC_ERROR_INVALID_PARAMETER);
}

TEST(AManager, ReportsAChangeOfTheLanguageOnce) {
    VoiceHarness room;
    vc_setting_initialize();
    vc_mgr_initialize();
    room.setCallbacks();
    EXPECT_EQ(vc_setting_set_language("en_GB"), VC_ERROR_NONE);
    EXPECT_EQ(vc_setting_set_language("en_GB"), VC_ERROR_NONE);
    room.settle();
    EXPECT_EQ(vc_setting_set_language("en_US"), VC_ERROR_NONE);
    room.settle();
    EXPECT_THAT(room.events, testing::ElementsAre("language en_US->en_GB", "language en_GB->en_US"));
}

TEST(AManager, ThatIsNotInitializedRefusesEverything) {
    EXPECT_EQ(vc_mgr_prepare(), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_start(false), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_cancel(), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_deinitialize(), VC_ERROR_INVALID_STATE);
    EXPECT_EQ(vc_mgr_unset_error_cb(), VC_ERROR_INVALID_STATE);
    char* language = nullptr;
    EXPECT_EQ(vc_setting_get_language(&language), VC_ERROR_INVALID_STATE);
}

TEST(AManager, RefusesUnknownKeysModesAndFiles) {
    VoiceHarness room;
    vc_mgr_initialize();
    EXPECT_EQ(vc_mgr_set_private_data("Color", "red"), VC_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(vc_mgr_set_private_data("Request", "makeCoffee"), VC_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(vc_mgr_set_private_data(nullptr, "x"), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_mgr_set_private_data("MediaVolume", "loud"), VC_ERROR_NONE);
    EXPECT_EQ(vc_mgr_set_recognition_mode(static_cast<vc_recognition_mode_e>(1)), VC_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(vc_mgr_set_preloaded_commands_from_file("/nowhere.txt"), VC_ERROR_IO_ERROR);
    EXPECT_EQ(vc_mgr_set_selected_results(nullptr), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_mgr_set_state_changed_cb(nullptr, nullptr), VC_ERROR_INVALID_PARAMETER);
}

}  // namespace
