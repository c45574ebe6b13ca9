// SPDX-License-Identifier: Apache-2.0
// Capture from a real sound server without a sound card.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "Listener.h"
#include "room/SoundRoom.h"
#include "speech_capture.h"

using namespace std::chrono_literals;
using testing::DoubleNear;
using testing::Ge;
using testing::Lt;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

constexpr int kRate = 16000;

bool hasTone(const tone::Samples& samples) {
    return tone::amplitudeAt(1000, kRate, samples) > 7000;
}

Child play(const SoundRoom& room, int channels, const tone::Samples& samples) {
    return Child({"paplay", "-d", "room", tone::wav(room.folder(), "played.wav", kRate, channels, samples)});
}

// Ends the test program when a blocked call does not return.
template <typename Future>
auto soon(Future& future) {
    if (future.wait_for(10s) != std::future_status::ready) {
        std::fprintf(stderr, "a blocked read does not end\n");
        std::abort();
    }
    return future.get();
}

}  // namespace

TEST(AToneInTheRoom, IsReadFromAudioInput) {
    const SoundRoom room;
    const AudioIn microphone;
    const Child player = play(room, 1, tone::sine(1000, kRate, 5));
    EXPECT_TRUE(microphone.captureUntil(hasTone));
    const tone::Samples captured = microphone.capture(0.5);
    EXPECT_THAT(tone::amplitudeAt(1000, kRate, captured), DoubleNear(8000, 400));
    EXPECT_THAT(tone::level(captured), DoubleNear(8000 / std::sqrt(2), 400)) << "the microphone captures only the tone";
}

TEST(AStereoSource, IsMixedToOneChannelForSpeech) {
    const SoundRoom room(2);
    const SpeechIn microphone;
    const Child player = play(room, 2, tone::stereo(tone::sine(1000, kRate, 5), tone::sine(3000, kRate, 5, 4000)));
    tone::Samples captured;
    for (int tenths = 0; tenths < 100 && tone::amplitudeAt(1000, kRate, captured = microphone.capture(0.1)) < 3500;
         ++tenths) {
    }
    captured = microphone.capture(0.5);
    EXPECT_THAT(tone::amplitudeAt(1000, kRate, captured), DoubleNear(4000, 200));
    EXPECT_THAT(tone::amplitudeAt(3000, kRate, captured), DoubleNear(2000, 100));
}

TEST(AnAudioInputRead, ReturnsExactlyTheWantedBytes) {
    const SoundRoom room;
    const AudioIn microphone;
    std::vector<char> buffer(2000, 'x');
    for (const unsigned bytes : {1024U, 2U, 512U, 640U}) {
        EXPECT_EQ(microphone.read(buffer.data(), bytes), static_cast<int>(bytes));
    }
    EXPECT_EQ(microphone.read(buffer.data(), 1023), 1022) << "half a sample is not read";
}

TEST(ASpeechRead, FillsOneChannelOf512BytesAndNoMore) {
    const SoundRoom room;
    const SpeechIn microphone;
    std::vector<int16_t> buffer(300, 12345);
    ASSERT_EQ(sse_read(buffer.data(), 256), 0);
    EXPECT_NE(std::vector<int16_t>(256, 12345), std::vector<int16_t>(buffer.begin(), buffer.begin() + 256));
    EXPECT_EQ(std::vector<int16_t>(44, 12345), std::vector<int16_t>(buffer.begin() + 256, buffer.end()));
}

TEST(ABlockedRead, EndsWhenTheDeviceIsUnpreparedByAnotherThread) {
    SoundRoom room;
    const AudioIn microphone;
    microphone.capture(0.1);
    room.freeze();
    auto reading = std::async(std::launch::async, [&] {
        int16_t block[512];
        int result = 0;
        while ((result = microphone.read(block, sizeof block)) > 0) {
        }
        return result;
    });
    ASSERT_EQ(reading.wait_for(100ms), std::future_status::timeout);
    CaptureStderr();
    EXPECT_EQ(audio_in_unprepare(microphone.handle()), 0);
    EXPECT_LT(soon(reading), 0);
    EXPECT_EQ(GetCapturedStderr(), "")
        << "unpreparing ends the read before the module gives up on the server and logs it";
    room.thaw();
}

TEST(ABlockedSpeechRead, EndsWhenTheCaptureIsUnpreparedByAnotherThread) {
    SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.1);
    room.freeze();
    auto reading = std::async(std::launch::async, [&] {
        int16_t block[256];
        int result = 0;
        while ((result = sse_read(block, 256)) == 0) {
        }
        return result;
    });
    ASSERT_EQ(reading.wait_for(100ms), std::future_status::timeout);
    CaptureStderr();
    EXPECT_EQ(sse_unprepare(), 0);
    EXPECT_NE(soon(reading), 0);
    EXPECT_EQ(GetCapturedStderr(), "")
        << "unpreparing ends the read before the module gives up on the server and logs it";
    room.thaw();
}

TEST(ASoundServerThatHangs, FailsTheReadAfterAWhile) {
    SoundRoom room;
    const AudioIn microphone;
    microphone.capture(0.1);
    room.freeze();
    auto reading = std::async(std::launch::async, [&] {
        int16_t block[512];
        int result = 0;
        while ((result = microphone.read(block, sizeof block)) > 0) {
        }
        return result;
    });
    EXPECT_EQ(soon(reading), AUDIO_IO_ERROR_DEVICE_NOT_OPENED);
    room.thaw();
}

TEST(ASoundServerThatDies, FailsTheReadInProgress) {
    SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.2);
    auto reading = std::async(std::launch::async, [&] {
        int16_t block[256];
        while (sse_read(block, 256) == 0) {
        }
    });
    CaptureStderr();
    room.kill();
    soon(reading);
    EXPECT_THAT(GetCapturedStderr(), testing::HasSubstr("no sound to capture: sound server: "));
}

TEST(ASoundServerThatReturns, IsReadAgainAfterTheRecorderResets) {
    SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.2);
    room.kill();
    int16_t block[256];
    while (sse_read(block, 256) == 0) {
    }
    int failures = 0;
    // The recorder's calls, in order. The server returns between them.
    auto recovering = std::async(std::launch::async, [&] {
        int resets = 0;
        do {
            resets += SpeechIn::reset() != 0;
            failures += sse_read(block, 256) != 0;
        } while (sse_read(block, 256) != 0);
        return resets;
    });
    ASSERT_EQ(recovering.wait_for(300ms), std::future_status::timeout) << "the server is not back yet";
    room.start();
    EXPECT_EQ(soon(recovering), 0) << "a reset must not fail, or the recorder stops";
    EXPECT_THAT(failures, testing::AllOf(Ge(1), Lt(50))) << "reads without a server must pace themselves";
    const Child player = play(room, 1, tone::sine(1000, kRate, 5));
    bool captured = false;
    for (int tenths = 0; tenths < 100 && !captured; ++tenths) {
        captured = hasTone(microphone.capture(0.1));
    }
    EXPECT_TRUE(captured);
}

TEST(ReadsWithoutASoundServer, WaitALittleAndFail) {
    SoundRoom room;
    room.stop();
    const AudioIn microphone;
    int16_t block[512];
    const auto before = std::chrono::steady_clock::now();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(microphone.read(block, sizeof block), AUDIO_IO_ERROR_DEVICE_NOT_OPENED);
    }
    EXPECT_GE(std::chrono::steady_clock::now() - before, 290ms);
}

TEST(AMicrophoneThatIsUnplugged, FailsTheReadAndIsReadAgainWhenItIsPluggedIn) {
    SoundRoom room;
    const SpeechIn microphone;
    microphone.capture(0.2);
    room.control({"unload-module", "module-remap-source"});
    room.control({"unload-module", "module-null-sink"});
    int16_t block[256];
    while (sse_read(block, 256) == 0) {
    }
    room.control({"load-module", "module-null-sink", "sink_name=room", "rate=16000", "channels=1"});
    room.control({"load-module", "module-remap-source", "master=room.monitor", "source_name=mic"});
    do {
        ASSERT_EQ(SpeechIn::reset(), 0);
    } while (sse_read(block, 256) != 0);
}

TEST(TwoCaptures, ReadTheSameRoom) {
    const SoundRoom room;
    const SpeechIn recorder;
    const AudioIn voice;
    const Child player = play(room, 1, tone::sine(1000, kRate, 5));
    EXPECT_TRUE(voice.captureUntil(hasTone));
    bool captured = false;
    for (int tenths = 0; tenths < 100 && !captured; ++tenths) {
        captured = hasTone(recorder.capture(0.1));
    }
    EXPECT_TRUE(captured);
}

TEST(AudioInput, RejectsInvalidArguments) {
    audio_in_h input = nullptr;
    EXPECT_EQ(audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, nullptr),
              AUDIO_IO_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(audio_in_create(0, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, &input),
              AUDIO_IO_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(audio_in_create(16000, static_cast<audio_channel_e>(7), AUDIO_SAMPLE_TYPE_S16_LE, &input),
              AUDIO_IO_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_U8, &input), AUDIO_IO_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(input, nullptr);
    ASSERT_EQ(audio_in_create(16000, AUDIO_CHANNEL_MONO, AUDIO_SAMPLE_TYPE_S16_LE, &input), 0);
    char byte = 0;
    EXPECT_EQ(audio_in_read(input, &byte, 0), AUDIO_IO_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(audio_in_read(input, nullptr, 1024), AUDIO_IO_ERROR_INVALID_PARAMETER);
    int16_t block[512];
    EXPECT_EQ(audio_in_read(input, block, sizeof block), AUDIO_IO_ERROR_INVALID_STATE) << "not prepared";
    EXPECT_EQ(audio_in_unprepare(input), AUDIO_IO_ERROR_INVALID_STATE);
    EXPECT_EQ(audio_in_destroy(input), 0);
    EXPECT_EQ(audio_in_destroy(nullptr), AUDIO_IO_ERROR_INVALID_PARAMETER);
}

TEST(SpeechCapture, ExistsOnceInAProcessAndRejectsCallsInTheWrongState) {
    EXPECT_EQ(sse_init(), AUDIO_IO_ERROR_INVALID_STATE);
    EXPECT_EQ(sse_prepare(), AUDIO_IO_ERROR_INVALID_STATE);
    ASSERT_EQ(sse_create(16000, AUDIO_CHANNEL_STEREO, AUDIO_SAMPLE_TYPE_S16_LE, 256), 0);
    EXPECT_EQ(sse_create(16000, AUDIO_CHANNEL_STEREO, AUDIO_SAMPLE_TYPE_S16_LE, 256), AUDIO_IO_ERROR_INVALID_STATE);
    EXPECT_EQ(sse_init(), 0);
    EXPECT_EQ(sse_unprepare(), AUDIO_IO_ERROR_INVALID_STATE);
    EXPECT_EQ(sse_destroy(), 0);
    EXPECT_EQ(sse_deinit(), 0) << "both orders are valid";
    EXPECT_EQ(sse_destroy(), AUDIO_IO_ERROR_INVALID_STATE);
}
