// SPDX-License-Identifier: Apache-2.0
// The recordings of wake-word detections.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <thread>

#include "Listener.h"
#include "audio/SoundThread.h"
#include "audio/capture/WakeupRecordings.h"
#include "process/Owner.h"
#include "sndfile/SoundFile.h"
#include "speech_capture.h"

namespace fs = std::filesystem;

namespace {

// Returns when everything posted to the sound thread is done.
void settle() {
    std::promise<void> done;
    process::shared<audio::SoundThread>().post([&] { done.set_value(); });
    done.get_future().get();
}

class AWakeWordDetection : public testing::Test {
protected:
    AWakeWordDetection() : root(mkdtemp(mName)) {
        setenv("ORVANE_AUDIO_REPLAY", tone::wav(root, "room.wav", 16000, 1, tone::sine(440, 16000, 5)).c_str(), 1);
        setenv("ORVANE_AUDIO_REPLAY_PACE", "fast", 1);
        setenv("ORVANE_WAKEUP_RECORDINGS", (root + "/kept").c_str(), 1);
    }
    ~AWakeWordDetection() override {
        for (const char* name : {"ORVANE_AUDIO_REPLAY", "ORVANE_AUDIO_REPLAY_PACE", "ORVANE_WAKEUP_RECORDINGS"}) {
            unsetenv(name);
        }
        fs::remove_all(root);
    }
    std::vector<fs::path> kept() const {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(root + "/kept")) {
            files.push_back(entry.path());
        }
        return files;
    }

private:
    char mName[32] = "/tmp/orvane-wakeup-XXXXXX";

protected:
    const std::string root;
};

}  // namespace

TEST_F(AWakeWordDetection, StoresWhatOnlyTheOwnerMayReadWhateverTheUmask) {
    const mode_t usual = umask(0);
    {
        const SpeechIn speech;
        speech.capture(0.5);
        EXPECT_EQ(sse_trigger_wakeup_word_recording(87), 0);
        settle();
    }
    umask(usual);
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(fs::status(kept()[0]).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(root + "/kept").permissions(), fs::perms(0700));
}

TEST_F(AWakeWordDetection, StoresTheLastTwoSecondsWithItsLevelInTheFileName) {
    const SpeechIn speech;
    tone::Samples captured = speech.capture(3.2);
    EXPECT_EQ(sse_trigger_wakeup_word_recording(87), 0);
    settle();
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_THAT(kept()[0].filename().string(), testing::HasSubstr("level87"));
    sndfile::Reader file(kept()[0]);
    ASSERT_EQ(file.frames(), 32000);
    std::vector<float> samples(32000);
    file.read(samples.data(), samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        ASSERT_EQ(static_cast<int16_t>(samples[i] * 32768), captured[captured.size() - 32000 + i]) << i;
    }
}

TEST_F(AWakeWordDetection, StoresWhatOnlyTheOwnerMayReadInADirectoryWithASlashAtTheEnd) {
    setenv("ORVANE_WAKEUP_RECORDINGS", (root + "/kept//").c_str(), 1);
    const mode_t usual = umask(0);
    {
        const SpeechIn speech;
        speech.capture(0.1);
        EXPECT_EQ(sse_trigger_wakeup_word_recording(87), 0);
        settle();
    }
    umask(usual);
    EXPECT_EQ(kept().size(), 1U);
    EXPECT_EQ(fs::status(root + "/kept").permissions(), fs::perms(0700));
}

TEST_F(AWakeWordDetection, LeavesAFileThatHasTheNameOfItsRecording) {
    const std::string file = root + "/taken.wav";
    std::ofstream(file) << "kept";
    EXPECT_THROW(audio::writeNewFile(file, {1, 2, 3}, 16000), std::exception);
    std::string content;
    std::ifstream(file) >> content;
    EXPECT_EQ(content, "kept");
}

TEST_F(AWakeWordDetection, LeavesNoFileWhenItsRecordingCannotBeWritten) {
    const std::string file = root + "/new.wav";
    EXPECT_THROW(audio::writeNewFile(file, {1, 2, 3}, -1), std::exception);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(AWakeWordDetection, KeepsAtMostFiftyRecordings) {
    const SpeechIn speech;
    speech.capture(0.1);
    for (int level = 0; level < 55; ++level) {
        sse_trigger_wakeup_word_recording(level);
    }
    settle();
    EXPECT_EQ(kept().size(), 50U);
    for (const fs::path& file : kept()) {
        EXPECT_THAT(file.string(), testing::Not(testing::HasSubstr("level0.wav")));
    }
}

TEST_F(AWakeWordDetection, LogsOneLineWhenItsRecordingCannotBeStored) {
    setenv("ORVANE_WAKEUP_RECORDINGS", "/proc/nowhere", 1);
    const SpeechIn speech;
    speech.capture(0.1);
    testing::internal::CaptureStderr();
    sse_trigger_wakeup_word_recording(50);
    settle();
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, testing::HasSubstr("/proc/nowhere"));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
}

TEST_F(AWakeWordDetection, StoresNothingWithoutADirectory) {
    unsetenv("ORVANE_WAKEUP_RECORDINGS");
    const SpeechIn speech;
    speech.capture(0.1);
    EXPECT_EQ(sse_trigger_wakeup_word_recording(50), 0);
    settle();
    EXPECT_FALSE(fs::exists(root + "/kept"));
}
