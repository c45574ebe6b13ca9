// SPDX-License-Identifier: Apache-2.0
// A recording that replaces the microphone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>

#include "Listener.h"
#include "speech_capture.h"

using namespace std::chrono_literals;
using testing::DoubleNear;

namespace {

using Clock = std::chrono::steady_clock;

class Folder {
public:
    Folder() { mPath = mkdtemp(mName); }
    ~Folder() { std::filesystem::remove_all(mPath); }
    const std::string& path() const { return mPath; }

private:
    char mName[32] = "/tmp/orvane-replay-XXXXXX";
    std::string mPath;
};

class Replay : public testing::Test {
protected:
    void replay(int rate, int channels, const tone::Samples& samples, const char* pace) {
        replayFile(tone::wav(folder.path(), "room.wav", rate, channels, samples), pace);
    }
    static void replayFile(const std::string& path, const char* pace) {
        setenv("ORVANE_AUDIO_REPLAY", path.c_str(), 1);
        setenv("ORVANE_AUDIO_REPLAY_PACE", pace, 1);
    }
    ~Replay() override {
        unsetenv("ORVANE_AUDIO_REPLAY");
        unsetenv("ORVANE_AUDIO_REPLAY_PACE");
        unsetenv("ORVANE_WAKEUP_RECORDINGS");
    }
    Folder folder;
};

using AReplayedRecording = Replay;

}  // namespace

TEST_F(AReplayedRecording, IsReadSampleForSampleWhenItsRateFits) {
    const tone::Samples played = tone::sine(440, 16000, 2.048);
    replay(16000, 1, played, "fast");
    const AudioIn microphone;
    EXPECT_EQ(microphone.capture(2.048), played);
}

TEST_F(AReplayedRecording, IsReadFasterThanRealTimeAtFastPace) {
    replay(16000, 1, tone::sine(440, 16000, 120), "fast");
    const AudioIn microphone;
    microphone.capture(120);  // in real time longer than the test's timeout
}

TEST_F(AReplayedRecording, TakesAtLeastItsLengthInRealTime) {
    replay(16000, 1, tone::sine(440, 16000, 5), "realtime");
    const SpeechIn microphone;
    const auto before = Clock::now();
    const tone::Samples captured = microphone.capture(0.8);
    EXPECT_GE(Clock::now() - before, 780ms);
    EXPECT_THAT(tone::amplitudeAt(440, 16000, captured), DoubleNear(8000, 100));
}

TEST_F(AReplayedRecording, IsConvertedFromAnyRateWithoutFalseTones) {
    for (const int rate : {8000, 11025, 22050, 44100, 48000}) {
        tone::Samples played = tone::sine(1000, rate, 1.5);
        if (rate > 40000) {
            const tone::Samples above = tone::sine(10000, rate, 1.5);  // would fold to 6000 Hz
            for (std::size_t i = 0; i < played.size(); ++i) {
                played[i] = static_cast<int16_t>(played[i] + above[i]);
            }
        }
        replayFile(tone::wav(folder.path(), std::to_string(rate) + ".wav", rate, 1, played), "fast");
        const AudioIn microphone;
        microphone.capture(0.2);
        const tone::Samples captured = microphone.capture(1);
        EXPECT_THAT(tone::amplitudeAt(1000, 16000, captured), DoubleNear(8000, 80)) << rate;
        EXPECT_LT(tone::amplitudeAt(6000, 16000, captured), 20) << rate;
    }
}

TEST_F(AReplayedRecording, WithTwoChannelsIsMixedToOne) {
    replay(16000, 2, tone::stereo(tone::sine(1000, 16000, 1), tone::sine(3000, 16000, 1, 4000)), "fast");
    const SpeechIn speech;
    const tone::Samples captured = speech.capture(0.8);
    EXPECT_THAT(tone::amplitudeAt(1000, 16000, captured), DoubleNear(4000, 80));
    EXPECT_THAT(tone::amplitudeAt(3000, 16000, captured), DoubleNear(2000, 80));
}

TEST_F(AReplayedRecording, IsFollowedByAQuietRoomInRealTime) {
    replay(16000, 1, tone::sine(440, 16000, 0.5), "fast");
    const AudioIn microphone;
    microphone.capture(0.512);
    const auto before = Clock::now();
    const tone::Samples quiet = microphone.capture(0.48);
    EXPECT_GE(Clock::now() - before, 450ms);
    EXPECT_GT(tone::level(quiet), 0.3);
    EXPECT_LT(tone::level(quiet), 4);
}

TEST_F(AReplayedRecording, ContinuesWhereItStoppedWhenTheMicrophoneIsOpenedAgain) {
    tone::Samples played = tone::sine(500, 16000, 1.024);
    const tone::Samples second = tone::sine(2000, 16000, 2);
    played.insert(played.end(), second.begin(), second.end());
    replay(16000, 1, played, "fast");
    {
        const AudioIn recorder;
        recorder.capture(1.024);
    }
    const AudioIn voice;
    const tone::Samples captured = voice.capture(0.5);
    EXPECT_THAT(tone::amplitudeAt(2000, 16000, captured), DoubleNear(8000, 100));
    EXPECT_LT(tone::amplitudeAt(500, 16000, captured), 100);
}

TEST_F(AReplayedRecording, EndsItsReadWhenTheCaptureStops) {
    replay(16000, 1, tone::sine(440, 16000, 5), "realtime");
    const AudioIn microphone;
    auto reading = std::async(std::launch::async, [&] {
        std::vector<int16_t> half(8000);
        return microphone.read(half.data(), 16000);
    });
    ASSERT_EQ(reading.wait_for(50ms), std::future_status::timeout);
    EXPECT_EQ(audio_in_unprepare(microphone.handle()), 0);
    EXPECT_LT(reading.get(), 0) << "the read ends before it has the whole half second";
}

TEST_F(AReplayedRecording, FailsToOpenWhenItsFileCannotBeRead) {
    std::ofstream(folder.path() + "/broken.wav") << "RIFF....WAVEfmt nonsense";
    for (const char* name : {"/broken.wav", "/missing.wav"}) {
        replayFile(folder.path() + name, "realtime");
        audio_in_h input = nullptr;
        ASSERT_EQ(audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, &input), 0);
        testing::internal::CaptureStderr();
        EXPECT_EQ(audio_in_prepare(input), AUDIO_IO_ERROR_DEVICE_NOT_OPENED) << name;
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_THAT(said, testing::HasSubstr(name));
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
        audio_in_destroy(input);
    }
}

TEST_F(AReplayedRecording, FailsToOpenAtAnUnknownPace) {
    replay(16000, 1, tone::sine(440, 16000, 1), "brisk");
    audio_in_h input = nullptr;
    ASSERT_EQ(audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, &input), 0);
    EXPECT_EQ(audio_in_prepare(input), AUDIO_IO_ERROR_DEVICE_NOT_OPENED);
    audio_in_destroy(input);
}
