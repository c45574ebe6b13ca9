// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <thread>

#include "Controller/SRecorderSSE.h"
#include "fake/audio/FakeSound.h"
#include "unit/Fixture.h"

using OrvaneDA::SRecorder;
using OrvaneDA::SRecorderSSE;

namespace {

constexpr auto RECORDING = SOUND_STREAM_FOCUS_FOR_RECORDING;
constexpr auto RELEASED = SOUND_STREAM_FOCUS_STATE_RELEASED;
constexpr auto ACQUIRED = SOUND_STREAM_FOCUS_STATE_ACQUIRED;
constexpr auto BY_CALL = SOUND_STREAM_FOCUS_CHANGED_BY_CALL;

// Changes the focus on another thread, as the sound manager does.
void change(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state, bool rightStream = true) {
    std::thread([=] { fake::changeFocus(mask, state, BY_CALL, rightStream); }).join();
}

}  // namespace

class FocusTest : public PlatformTest {
protected:
    static bool reads(size_t more) {
        const size_t before = fake::platform().count("sse_read");
        return fake::platform().waitFor("sse_read", before + more);
    }
    static long starts() {
        const auto lines = fake::platform().logs();
        return std::count_if(lines.begin(), lines.end(),
                             [](auto& line) { return line.text.find(": startRecord(") != std::string::npos; });
    }
};

TEST_F(FocusTest, ALostFocusStopsTheCaptureAndARegainedOneResumesIt) {
    bool captureEndedBeforeTheDevice = false;
    fake::platform().onCall("sse_unprepare", [&](const fake::Call&) {
        captureEndedBeforeTheDevice = fake::platform().logged(DLOG_INFO, "_audio_record finish");
    });
    SRecorderSSE recorder;
    recorder.startRecord();
    ASSERT_TRUE(reads(1));
    change(RECORDING, RELEASED);
    fake::platform().onCall("sse_unprepare", nullptr);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Sound Stream Focus State Chagned!"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG,
                                        "Focus state changed to (0) with reason(SOUND_STREAM_FOCUS_CHANGED_BY_CALL)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Focus released as interrupt"));
    EXPECT_TRUE(captureEndedBeforeTheDevice);
    EXPECT_EQ(fake::platform().count("sse_unprepare"), 1u);
    EXPECT_EQ(fake::platform().count("sound_manager_release_focus"), 0u);
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "_audio_record finish"));

    long startsBeforeTheDevice = 0;
    fake::platform().onCall("sse_prepare", [&](const fake::Call&) { startsBeforeTheDevice = starts(); });
    change(RECORDING, ACQUIRED);
    fake::platform().onCall("sse_prepare", nullptr);
    EXPECT_EQ(startsBeforeTheDevice, 1) << "the capture starts after the device";
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Focus acquired as interrupt completed"));
    EXPECT_EQ(fake::platform().count("sse_prepare"), 2u);
    EXPECT_TRUE(reads(2));
}

TEST_F(FocusTest, ARegainedFocusWithoutAReadThreadIsLoggedOnceAndTheNextOneResumesTheCapture) {
    SRecorderSSE recorder;
    change(RECORDING, RELEASED);
    {
        const NoNewThreads noNewThreads;
        fake::changeFocus(RECORDING, ACQUIRED, BY_CALL);
    }
    EXPECT_EQ(fake::platform().countLogged("Failed to start the read thread"), 1u);
    change(RECORDING, RELEASED);
    change(RECORDING, ACQUIRED);
    EXPECT_TRUE(reads(1));
}

TEST_F(FocusTest, ThePlaybackFocusDoesNotMatter) {
    SRecorderSSE recorder;
    change(SOUND_STREAM_FOCUS_FOR_PLAYBACK, RELEASED);
    EXPECT_EQ(fake::platform().count("sse_unprepare"), 0u);
}

TEST_F(FocusTest, GainingTheFocusWhilePreparedOrLosingItWhileUnpreparedChangesNothing) {
    SRecorderSSE recorder;
    change(RECORDING, ACQUIRED);
    EXPECT_EQ(fake::platform().count("sse_prepare"), 1u);
    recorder._audio_unprepare();
    change(RECORDING, RELEASED);
    EXPECT_EQ(fake::platform().count("sse_unprepare"), 1u);
}

TEST_F(FocusTest, AChangeOfAnotherStreamIsAnErrorAndIsIgnored) {
    SRecorderSSE recorder;
    change(RECORDING, RELEASED, false);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Invalid stream info handle"));
    EXPECT_EQ(fake::platform().countLogged("Sound Stream Focus State Chagned!"), 0u);
    EXPECT_EQ(fake::platform().count("sse_unprepare"), 0u);
}

TEST_F(FocusTest, EachReasonHasItsName) {
    const char* names[] = {
        "MEDIA",    "SYSTEM", "ALARM", "NOTIFICATION",       "EMERGENCY", "VOICE_INFORMATION", "VOICE_RECOGNITION",
        "RINGTONE", "VOIP",   "CALL",  "MEDIA_EXTERNAL_ONLY"};
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(SRecorder::TranslateSoundStreamFocusChangeReason(static_cast<sound_stream_focus_change_reason_e>(i)),
                  std::string("SOUND_STREAM_FOCUS_CHANGED_BY_") + names[i]);
    }
    for (int i : {11, 15}) {
        EXPECT_STREQ(
            SRecorder::TranslateSoundStreamFocusChangeReason(static_cast<sound_stream_focus_change_reason_e>(i)),
            "Undefined reason code");
    }
}

TEST_F(FocusTest, AnUnknownReasonIsLoggedAsUndefined) {
    SRecorderSSE recorder;
    fake::changeFocus(SOUND_STREAM_FOCUS_FOR_PLAYBACK, RELEASED, static_cast<sound_stream_focus_change_reason_e>(11));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Focus state changed to (0) with reason(Undefined reason code)"));
}

TEST_F(FocusTest, AChangeDuringTheRecordersDestructionIsSafe) {
    for (int i = 0; i < 10; ++i) {
        auto recorder = std::make_unique<SRecorderSSE>();
        recorder->startRecord();
        std::atomic<bool> done{false};
        // The platform waits for a running callback before it destroys the stream information.
        std::thread manager([&] {
            fake::changeFocus(RECORDING, RELEASED, BY_CALL);
            done = true;
        });
        fake::platform().onCall("sound_manager_destroy_stream_information", [&](const fake::Call&) {
            while (!done) {
                std::this_thread::yield();
            }
        });
        recorder.reset();
        manager.join();
    }
    fake::platform().onCall("sound_manager_destroy_stream_information", nullptr);
}
