// SPDX-License-Identifier: Apache-2.0
// The volumes of the sound types on a real sound server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <future>

#include "Listener.h"
#include "Reports.h"
#include "StandStill.h"
#include "room/SoundRoom.h"
#include "sound_manager.h"

using testing::DoubleNear;
using testing::ElementsAre;

namespace {

using Change = std::pair<sound_type_e, unsigned>;
using Changes = Reports<Change>;

void changed(sound_type_e type, unsigned volume, void* changes) {
    static_cast<Changes*>(changes)->add({type, volume});
}

class Watching {
public:
    Watching() { EXPECT_EQ(sound_manager_set_volume_changed_cb(changed, &mChanges), 0); }
    ~Watching() { sound_manager_unset_volume_changed_cb(changed, &mChanges); }
    Changes* operator->() { return &mChanges; }

private:
    Changes mChanges;
};

int volumeOf(sound_type_e type) {
    int volume = -1;
    EXPECT_EQ(sound_manager_get_volume(type, &volume), SOUND_MANAGER_ERROR_NONE);
    return volume;
}

// An endless tone with this role.
Child player(const SoundRoom& room, const std::string& role) {
    const std::string file = tone::wav(room.folder(), role + ".wav", 16000, 1, tone::sine(1000, 16000, 30));
    return Child({"paplay", "-d", "room", "--latency-msec=50", "--property=media.role=" + role, file});
}

double toneIn(const tone::Samples& captured) {
    return tone::amplitudeAt(1000, 16000, captured);
}

constexpr sound_type_e kAll[] = {SOUND_TYPE_SYSTEM, SOUND_TYPE_NOTIFICATION, SOUND_TYPE_ALARM, SOUND_TYPE_MEDIA};

}  // namespace

TEST(AVolume, IsReadBackAtEveryLevelForEveryType) {
    const SoundRoom room;
    for (const sound_type_e type : kAll) {
        for (int level = 0; level <= 15; ++level) {
            ASSERT_EQ(sound_manager_set_volume(type, level), SOUND_MANAGER_ERROR_NONE) << type << " " << level;
            ASSERT_EQ(volumeOf(type), level) << type;
        }
    }
}

TEST(AVolumeThatIsOutOfRange, IsRejectedAndChangesNothing) {
    const SoundRoom room;
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 9), 0);
    EXPECT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 16), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, -1), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(sound_manager_set_volume(static_cast<sound_type_e>(3), 5), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 9);
    EXPECT_EQ(sound_manager_get_volume(SOUND_TYPE_MEDIA, nullptr), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
}

TEST(TheMediaVolume, IsThatOfTheLoudspeaker) {
    const SoundRoom room;
    const AudioIn microphone;
    const Child music = player(room, "music");
    ASSERT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) > 7500; }));
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 0), 0);
    EXPECT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) < 1; }));
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 15), 0);
    EXPECT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) > 7500; }));
}

TEST(TheAlarmVolume, AffectsAlarmsAndNothingElse) {
    const SoundRoom room;
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_ALARM, 0), 0);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_NOTIFICATION, 15), 0);
    const AudioIn microphone;
    Child alarm = player(room, "alarm");
    Child bell = player(room, "event");
    ASSERT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) > 7500; }))
        << "the notification is loud";
    bell.stop();
    ASSERT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) < 1; }))
        << "the alarm is silent";
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_ALARM, 15), 0);
    EXPECT_TRUE(microphone.captureUntil([](const auto& captured) { return toneIn(captured) > 7500; }));
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 15);
}

TEST(AVolumeChange, ByAnotherProgramIsReportedOnTheSoundThread) {
    const SoundRoom room;
    Watching changes;
    room.control({"set-sink-volume", "@DEFAULT_SINK@", "40%"});
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 6}));
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 6);
    EXPECT_FALSE(changes->stray());
}

TEST(AVolumeChange, OfThisProgramIsReportedToo) {
    const SoundRoom room;
    Watching changes;
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 4), 0);
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 4}));
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_ALARM, 7), 0);
    EXPECT_TRUE(changes->await({SOUND_TYPE_ALARM, 7}));
    EXPECT_THAT(changes->all(), ElementsAre(Change(SOUND_TYPE_MEDIA, 4), Change(SOUND_TYPE_ALARM, 7)));
}

TEST(AVolumeChange, IsReportedWhenALevelBecomesKnownAfterARegistrationWithoutAServer) {
    SoundRoom room;
    room.kill();
    Watching changes;
    room.start();
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 15}));
    EXPECT_TRUE(changes->await({SOUND_TYPE_ALARM, 15}));
}

TEST(AVolumeChange, IsReportedAfterTheServerHung) {
    SoundRoom room;
    Watching changes;
    standStillAfter(room, [&] { room.control({"set-sink-volume", "@DEFAULT_SINK@", "40%"}); });
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 6}));
}

TEST(AMutedLoudspeaker, HasLevelZeroUntilItIsSetAgain) {
    const SoundRoom room;
    Watching changes;
    room.control({"set-sink-mute", "@DEFAULT_SINK@", "1"});
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 0}));
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 0);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 12), 0);
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 12);
}

TEST(AVolumeAbove100Percent, IsTheHighestLevel) {
    const SoundRoom room;
    room.control({"set-sink-volume", "@DEFAULT_SINK@", "140%"});
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 15);
}

TEST(TheBalanceOfTheLoudspeaker, StaysWhenTheVolumeIsSetToZeroAndBack) {
    const SoundRoom room(2);
    room.control({"set-sink-volume", "@DEFAULT_SINK@", "100%", "50%"});
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 0), 0);
    EXPECT_EQ(volumeOf(SOUND_TYPE_MEDIA), 0);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 6), 0);
    std::string said;
    FILE* pactl = popen("pactl get-sink-volume @DEFAULT_SINK@", "r");
    char line[256];
    while (fgets(line, sizeof line, pactl)) {
        said += line;
    }
    pclose(pactl);
    EXPECT_THAT(said, testing::AllOf(testing::HasSubstr("40%"), testing::HasSubstr("20%")));
}

TEST(TwoRegistrationsOfOneCallback, AreDistinguishedByTheirData) {
    const SoundRoom room;
    Watching stays;
    Changes leaves;
    ASSERT_EQ(sound_manager_set_volume_changed_cb(changed, &leaves), 0);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 3), 0);
    EXPECT_TRUE(leaves.await({SOUND_TYPE_MEDIA, 3}));
    ASSERT_EQ(sound_manager_unset_volume_changed_cb(changed, &leaves), 0);
    EXPECT_EQ(sound_manager_unset_volume_changed_cb(changed, &leaves), SOUND_MANAGER_ERROR_INVALID_PARAMETER);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 8), 0);
    EXPECT_TRUE(stays->await({SOUND_TYPE_MEDIA, 8}));
    EXPECT_EQ(leaves.all().size(), 1U);
}

TEST(UnsettingAVolumeCallback, WaitsUntilItHasReturned) {
    const SoundRoom room;
    struct Slow {
        std::promise<void> entered;
        std::promise<void> mayLeave;
        std::atomic<bool> left{false};
    } slow;
    const auto callback = [](sound_type_e, unsigned, void* data) {
        auto& self = *static_cast<Slow*>(data);
        self.entered.set_value();
        self.mayLeave.get_future().wait();
        self.left = true;
    };
    ASSERT_EQ(sound_manager_set_volume_changed_cb(callback, &slow), 0);
    ASSERT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 5), 0);
    slow.entered.get_future().wait();
    auto unsetting = std::async(std::launch::async, [&] {
        sound_manager_unset_volume_changed_cb(callback, &slow);
        return slow.left.load();
    });
    EXPECT_EQ(unsetting.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    slow.mayLeave.set_value();
    EXPECT_TRUE(unsetting.get());
}

TEST(VolumesWithoutASoundServer, FailUntilItIsBack) {
    SoundRoom room;
    Watching changes;
    room.kill();
    int volume = -1;
    while (sound_manager_get_volume(SOUND_TYPE_MEDIA, &volume) == 0) {
    }
    EXPECT_EQ(sound_manager_get_volume(SOUND_TYPE_MEDIA, &volume), SOUND_MANAGER_ERROR_INTERNAL);
    EXPECT_EQ(sound_manager_set_volume(SOUND_TYPE_MEDIA, 5), SOUND_MANAGER_ERROR_INTERNAL);
    room.start();
    room.control({"set-sink-volume", "@DEFAULT_SINK@", "20%"});
    EXPECT_TRUE(changes->await({SOUND_TYPE_MEDIA, 3}));
}
