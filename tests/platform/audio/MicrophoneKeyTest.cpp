// SPDX-License-Identifier: Apache-2.0
// The microphone key turns the microphone off: the sound server has no capture stream of this process.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "Captured.h"
#include "Listener.h"
#include "room/SoundRoom.h"
#include "speech_capture.h"
#include "support/Eventually.h"
#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

namespace {

// Another process changes the setting.
void setKey(const std::string& value) {
    ASSERT_EQ(system(("dconf write /db/mic_key/status " + value).c_str()), 0);
}

bool isCaptured() {
    return captured::streams().size() == 1;
}

bool isReleased() {
    return captured::streams().empty();
}

// Reads the speech capture on a thread, as the recorder does.
class Reader {
public:
    ~Reader() {
        mEnd = true;
        mThread.join();
    }

    int failures() const { return mFailures; }
    bool readsSilence() const {
        return eventually([this] { return mSilence.load(); });
    }
    bool readsSound() const {
        return eventually([this] { return !mSilence; });
    }

private:
    void run() {
        while (!mEnd) {
            tone::Samples block(256);
            mFailures += sse_read(block.data(), 256) != 0;
            mSilence = tone::level(block) == 0;
        }
    }

    std::atomic<bool> mEnd{false};
    std::atomic<int> mFailures{0};
    std::atomic<bool> mSilence{true};
    std::thread mThread{[this] { run(); }};
};

class TheMicrophoneKey : public testing::Test {
protected:
    TheMicrophoneKey() { setKey("1"); }

    SoundRoom mRoom;
    Child mPlayer{
        {"paplay", "-d", "room", tone::wav(mRoom.folder(), "tone.wav", 16000, 1, tone::sine(1000, 16000, 60))}};
};

TEST_F(TheMicrophoneKey, ReleasesTheMicrophoneAndReacquiresIt) {
    const SpeechIn microphone;
    ASSERT_TRUE(eventually(isCaptured));
    const Reader reader;
    ASSERT_TRUE(reader.readsSound());
    const int before = reader.failures();
    for (int times = 0; times < 3; ++times) {
        setKey("0");
        EXPECT_TRUE(eventually(isReleased));
        EXPECT_TRUE(reader.readsSilence());
        setKey("1");
        EXPECT_TRUE(eventually(isCaptured));
        EXPECT_TRUE(reader.readsSound());
    }
    EXPECT_EQ(reader.failures(), before) << "no read fails, so the recorder does not reset the device";
}

TEST_F(TheMicrophoneKey, KeepsTheMicrophoneReleasedWhileItIsOff) {
    setKey("0");
    const SpeechIn microphone;
    const AudioIn second;
    const Reader reader;
    for (int times = 0; times < 3; ++times) {
        second.capture(0.1);
        EXPECT_TRUE(isReleased());
        ASSERT_EQ(audio_in_unprepare(second.handle()), 0);
        ASSERT_EQ(audio_in_prepare(second.handle()), 0);
    }
    EXPECT_EQ(reader.failures(), 0);
    setKey("1");
    EXPECT_TRUE(reader.readsSound());
}

TEST_F(TheMicrophoneKey, IsOnUnlessTheSettingIsTheNumberZero) {
    for (const char* value : {"2", "\"'0'\"", "false"}) {
        setKey("0");
        const SpeechIn microphone;
        EXPECT_TRUE(isReleased());
        setKey(value);
        EXPECT_TRUE(eventually(isCaptured)) << value;
    }
}

TEST_F(TheMicrophoneKey, ReleasesTheMicrophoneOfAServerThatReturns) {
    const SpeechIn microphone;
    setKey("0");
    mRoom.kill();
    mRoom.start();
    microphone.capture(0.5);
    EXPECT_TRUE(isReleased());
    setKey("1");
    EXPECT_TRUE(eventually(isCaptured));
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const PrivateHome home;
    const PrivateBus bus;
    return RUN_ALL_TESTS();
}
