// SPDX-License-Identifier: Apache-2.0
// Watches of the recording focus, whichever process holds it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FocusRoom.h"
#include "support/Eventually.h"

using namespace focus;
using testing::ElementsAre;

namespace {

constexpr int kAlarm = SOUND_STREAM_FOCUS_CHANGED_BY_ALARM;
constexpr int kEmergency = SOUND_STREAM_FOCUS_CHANGED_BY_EMERGENCY;
constexpr int kVoice = SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_RECOGNITION;

class Watch {
public:
    Watch() {
        privateBusAddress();
        EXPECT_EQ(sound_manager_add_focus_state_watch_cb(SOUND_STREAM_FOCUS_FOR_RECORDING, changed, &mChanges, &mId),
                  0);
    }
    ~Watch() { sound_manager_remove_focus_state_watch_cb(mId); }
    Reports<Change>* operator->() { return &mChanges; }

private:
    static void changed(int, sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                        sound_stream_focus_change_reason_e reason, const char*, void* changes) {
        static_cast<Reports<Change>*>(changes)->add({mask, state, reason});
    }

    Reports<Change> mChanges;
    int mId = -1;
};

}  // namespace

TEST(AWatchOfTheRecordingFocus, ReportsTheReasonOfTheHolder) {
    Watch watch;
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(watch->await(acquired(kAlarm)));
    alarm.kill();
    ASSERT_TRUE(watch->await(released(kAlarm)));
    EXPECT_THAT(watch->all(), ElementsAre(acquired(kAlarm), released(kAlarm)));
    EXPECT_FALSE(watch->stray());
}

TEST(AWatchOfTheRecordingFocus, ReportsEachNewHolder) {
    Watch watch;
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(watch->await(acquired(kAlarm)));
    Child emergency = holder(kEmergency);
    ASSERT_TRUE(watch->await(acquired(kEmergency)));
    emergency.kill();
    ASSERT_TRUE(eventually([&] { return watch->all().size() == 3; })) << "the first holder gets the focus back";
    alarm.kill();
    ASSERT_TRUE(watch->await(released(kAlarm)));
    EXPECT_THAT(watch->all(), ElementsAre(acquired(kAlarm), acquired(kEmergency), acquired(kAlarm), released(kAlarm)));
}

TEST(AWatchOfTheRecordingFocus, ReportsTheStreamsOfItsOwnProcess) {
    Watch watch;
    Stream stream;
    ASSERT_EQ(stream.acquire(), 0);
    EXPECT_TRUE(watch->await(acquired(kVoice)));
    ASSERT_EQ(stream.release(), 0);
    EXPECT_TRUE(watch->await(released(kVoice)));
}

TEST(AWatchOfTheRecordingFocus, KnowsTheReasonOfAnEarlierHolder) {
    privateBusAddress();
    Child alarm = holder(kAlarm);
    ASSERT_TRUE(eventually([] { return !isFree(); }));
    Watch watch;
    settle();
    alarm.kill();
    EXPECT_TRUE(watch->await(released(kAlarm)));
    EXPECT_THAT(watch->all(), ElementsAre(released(kAlarm)));
}
