// SPDX-License-Identifier: Apache-2.0
// The service's recorder on the real microphone and the real focus.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>
#include <memory>

#include "Controller/SRecorderOriginal.h"
#include "Controller/SRecorderSSE.h"
#include "FocusRoom.h"
#include "Listener.h"
#include "room/SoundRoom.h"
#include "support/Eventually.h"

namespace {

class Blocks : public OrvaneDA::SRecordListener {
public:
    Blocks() : SRecordListener(0) { setEnabled(true); }
    int count() const { return mCount; }
    bool moreCome() const {
        const int before = mCount;
        return eventually([&] { return mCount > before + 5; });
    }

private:
    void implDataHandled(char* data, int) override {
        const std::unique_ptr<char[]> owned(data);
        ++mCount;
    }

    std::atomic<int> mCount{0};
};

// Whether a client of the sound server captures; the server's own streams between devices have no client.
bool isCaptured() {
    return system("pactl list short source-outputs | awk '$3 != \"-\" {any = 1} END {exit !any}'") == 0;
}

template <typename Recorder>
class ARealRecorder : public testing::Test {
protected:
    ARealRecorder() { privateBusAddress(); }

    SoundRoom mRoom;
};
using BackEnds = testing::Types<OrvaneDA::SRecorderSSE, OrvaneDA::SRecorderOriginal>;
TYPED_TEST_SUITE(ARealRecorder, BackEnds, );

TYPED_TEST(ARealRecorder, ReleasesTheMicrophoneWithTheFocusAndResumesWhenTheFocusReturns) {
    Blocks blocks;
    TypeParam recorder;
    recorder.addListener(&blocks);
    recorder.startRecord();
    ASSERT_TRUE(focus::isOurs());
    ASSERT_TRUE(blocks.moreCome());
    for (int times = 0; times < 3; ++times) {
        Child alarm = focus::holder(SOUND_STREAM_FOCUS_CHANGED_BY_ALARM);
        ASSERT_TRUE(eventually([] { return !isCaptured(); })) << "the microphone is released";
        EXPECT_FALSE(focus::isOurs());
        const AudioIn other;
        other.capture(0.1);  // sound that was already captured has arrived
        const int before = blocks.count();
        other.capture(0.2);
        EXPECT_EQ(blocks.count(), before);
        alarm.kill();
        ASSERT_TRUE(blocks.moreCome()) << "capture is resumed";
        EXPECT_TRUE(focus::isOurs());
    }
    recorder.stopRecord();
}

TYPED_TEST(ARealRecorder, ReleasesMicrophoneAndFocusOnDestruction) {
    Blocks blocks;
    {
        TypeParam recorder;
        recorder.addListener(&blocks);
        recorder.startRecord();
        ASSERT_TRUE(blocks.moreCome());
    }
    EXPECT_TRUE(focus::isFree());
    EXPECT_TRUE(eventually([] { return !isCaptured(); }));
}

TYPED_TEST(ARealRecorder, MayBeDestroyedWhileAnotherProcessHasTheFocus) {
    Blocks blocks;
    auto recorder = std::make_unique<TypeParam>();
    recorder->addListener(&blocks);
    recorder->startRecord();
    ASSERT_TRUE(blocks.moreCome());
    Child alarm = focus::holder(SOUND_STREAM_FOCUS_CHANGED_BY_ALARM);
    ASSERT_TRUE(eventually([] { return !focus::isOurs(); }));
    recorder.reset();
    alarm.kill();
    EXPECT_TRUE(eventually(focus::isFree));
    EXPECT_TRUE(eventually([] { return !isCaptured(); }));
}

}  // namespace
