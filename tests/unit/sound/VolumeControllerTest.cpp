// SPDX-License-Identifier: Apache-2.0
#include "Util/Sound/VolumeController.h"

#include <atomic>

#include "fake/audio/FakeSound.h"
#include "unit/Fixture.h"

using Util::MediaType;
using Util::VolumeController;

class VolumeControllerTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        // A media player has the focus, so that decreases fade.
        fake::setPlaybackFocus(SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA);
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, 8);
    }
    static bool levelBecomes(int level) {
        return fake::platform().waitUntil([=] { return fake::volumeLevel(SOUND_TYPE_MEDIA) == level; });
    }
    // From level 8 to 2; the callback reports the end.
    void duck(VolumeController& controller) {
        controller.setDecreaseCallback([this](void*) { ++ended; }, nullptr);
        ASSERT_EQ(controller.decreaseVolume(0.01), 1);
        ASSERT_TRUE(fake::platform().waitUntil([&] { return ended == 1; }));
        ASSERT_TRUE(levelBecomes(2));
    }
    std::atomic<int> ended{0};
};

TEST_F(VolumeControllerTest, ANewControllerRegistersItsCallbackAndThenReadsTheVolume) {
    { VolumeController controller(MediaType::MEDIA); }
    EXPECT_EQ(fake::platform().story(),
              (Texts{"sound_manager_set_volume_changed_cb()", "sound_manager_get_volume(4)",
                     "log: get volume 8 type(SOUND_TYPE_MEDIA)", "sound_manager_unset_volume_changed_cb()"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "get volume 8 type(SOUND_TYPE_MEDIA)"));
}

TEST_F(VolumeControllerTest, MediaTypesMapToSoundTypesAndNames) {
    const struct {
        int media;
        const char* sound;
        const char* name;
    } rows[] = {{0, "0", "SOUND_TYPE_SYSTEM"}, {1, "1", "SOUND_TYPE_NOTIFICATION"}, {2, "2", "SOUND_TYPE_ALARM"},
                {3, "4", "UNKNOWN"},           {4, "4", "SOUND_TYPE_MEDIA"},        {5, "4", "UNKNOWN"}};
    for (const auto& row : rows) {
        VolumeController controller(static_cast<MediaType>(row.media));
        fake::platform().forgetCalls();
        controller.setRealVolume(5);
        EXPECT_EQ(fake::platform().story(), (Texts{std::string("log: set volume 5 type(") + row.name + ")",
                                                   std::string("sound_manager_set_volume(") + row.sound + ", 5)"}));
        EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, std::string("set volume 5 type(") + row.name + ")"));
    }
}

TEST_F(VolumeControllerTest, FailuresOfTheDeviceAreLogged) {
    VolumeController controller(MediaType::MEDIA);
    fake::platform().answer("sound_manager_get_volume", -703);
    fake::platform().answer("sound_manager_set_volume", -22);
    EXPECT_EQ(controller.getRealVolume(), -1);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to get media volume"));
    EXPECT_EQ(controller.setRealVolume(3), -22);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to set media volume"));
    EXPECT_EQ(controller.VolumeUp(), -1);
    EXPECT_EQ(controller.VolumeDown(), -1);
}

TEST_F(VolumeControllerTest, UpAndDownChangeTheLevelByOne) {
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.VolumeUp(), 0);
    EXPECT_EQ(controller.getVolume(), 9);
    EXPECT_EQ(controller.VolumeDown(), 0);
    EXPECT_EQ(controller.getVolume(), 8);
    controller.setVolume(0);
    EXPECT_EQ(controller.VolumeDown(), -1);
    EXPECT_EQ(controller.setVolume(-1), -1);
}

TEST_F(VolumeControllerTest, UnmutingSetsTheLastLevelAboveZero) {
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.unmute(), -1);
    fake::changeVolume(SOUND_TYPE_MEDIA, 5);
    controller.mute();
    fake::changeVolume(SOUND_TYPE_MEDIA, 0);
    EXPECT_EQ(controller.unmute(), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 5);
}

TEST_F(VolumeControllerTest, UnmutingWithoutALastLevelSetsLevelSeven) {
    fake::platform().answerNext("sound_manager_get_volume", -703);
    VolumeController controller(MediaType::MEDIA);
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 0);
    EXPECT_EQ(controller.unmute(), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 7);
}

TEST_F(VolumeControllerTest, AChangeOfAnotherSoundTypeIsIgnored) {
    VolumeController controller(MediaType::ALARM);
    VolumeController follower(MediaType::MEDIA);
    controller.addSync(&follower);
    fake::platform().forgetCalls();
    fake::changeVolume(SOUND_TYPE_SYSTEM, 3);
    EXPECT_TRUE(fake::platform().texts().empty());
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(VolumeControllerTest, AFollowerGetsTheLevelAtOnceAndAtEachChange) {
    fake::setVolumeLevel(SOUND_TYPE_ALARM, 6);
    VolumeController controller(MediaType::ALARM);
    VolumeController follower(MediaType::MEDIA);
    EXPECT_EQ(controller.addSync(&follower), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 6);
    fake::changeVolume(SOUND_TYPE_ALARM, 9);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 9);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "volume 9 type(SOUND_TYPE_ALARM)"));
}

TEST_F(VolumeControllerTest, ADeviceLevelOfTwoOrLessIsNeverDucked) {
    VolumeController controller(MediaType::MEDIA);
    for (int level : {0, 2}) {
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, level);
        EXPECT_EQ(controller.decreaseVolume(0.1), 0);
        EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), level);
    }
    EXPECT_TRUE(fake::volumesSet().empty());
}

TEST_F(VolumeControllerTest, AnAvailableOutputIsNotDucked) {
    fake::setPlaybackFocus(SOUND_STREAM_FOCUS_CHANGED_BY_ALARM);
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.decreaseVolume(0.1), 0);
}

TEST_F(VolumeControllerTest, OtherTypesAreDuckedRegardlessOfWhatPlays) {
    fake::setVolumeLevel(SOUND_TYPE_ALARM, 8);
    VolumeController controller(MediaType::ALARM);
    EXPECT_EQ(controller.decreaseVolume(0.01), 1);
    EXPECT_EQ(fake::platform().count("sound_manager_get_current_playback_focus"), 0u);
}

TEST_F(VolumeControllerTest, ADecreaseCallsBackBeforeItSetsTheTarget) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 3);
    int datum = 0;
    {
        VolumeController controller(MediaType::MEDIA);
        controller.setDecreaseCallback(
            [this](void* userData) {
                EXPECT_EQ(fake::volumesSet(), std::vector<int>{}) << "the callback comes before the last step";
                *static_cast<int*>(userData) = ++ended;
            },
            &datum);
        EXPECT_EQ(controller.decreaseVolume(1.0), 1);
    }
    EXPECT_EQ(datum, 1);
    EXPECT_EQ(fake::volumesSet(), std::vector<int>{2});
}

TEST_F(VolumeControllerTest, ADecreaseWithoutACallbackSetsItsTarget) {
    { EXPECT_EQ(VolumeController(MediaType::MEDIA).decreaseVolume(0), 1); }
    EXPECT_EQ(fake::volumesSet(), std::vector<int>{2});
}

TEST_F(VolumeControllerTest, ALevelSetWhileDuckedIsAppliedByTheRestore) {
    {
        VolumeController controller(MediaType::MEDIA);
        duck(controller);
        EXPECT_EQ(controller.setVolume(9), 0);
        EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 2);
        EXPECT_EQ(controller.getVolume(), 9);
        EXPECT_EQ(controller.restoreVolume(0.1), 1);
    }
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 9);
}

TEST_F(VolumeControllerTest, WhileDuckedThePlatformsChangesAreIgnored) {
    {
        VolumeController controller(MediaType::MEDIA);
        duck(controller);
        fake::changeVolume(SOUND_TYPE_MEDIA, 4);
        EXPECT_EQ(controller.getVolume(), 8);
        controller.restoreVolume(0.05);
    }
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 8);
}

TEST_F(VolumeControllerTest, FollowersGetOnlyTheLastLevelOfARestore) {
    // Reports each level that is set, as the sound manager does.
    fake::platform().onCall("sound_manager_set_volume", [](const fake::Call& call) {
        if (call.args[0] == std::to_string(SOUND_TYPE_MEDIA)) {
            fake::changeVolume(SOUND_TYPE_MEDIA, std::stoi(call.args[1]));
        }
    });
    fake::setVolumeLevel(SOUND_TYPE_ALARM, 1);
    VolumeController follower(MediaType::ALARM);
    VolumeController controller(MediaType::MEDIA);
    controller.addSync(&follower);
    fake::platform().forgetCalls();
    duck(controller);
    controller.setVolume(5);
    controller.restoreVolume(0.1);
    EXPECT_TRUE(fake::platform().waitUntil([] { return fake::volumeLevel(SOUND_TYPE_ALARM) == 5; }));
    Texts told;
    for (const std::string& text : fake::platform().textsOf({"sound_manager_set_volume"})) {
        if (text.find("(" + std::to_string(SOUND_TYPE_ALARM) + ",") != std::string::npos) {
            told.push_back(text);
        }
    }
    EXPECT_EQ(told, Texts{"sound_manager_set_volume(2, 5)"});
}

TEST_F(VolumeControllerTest, AfterARestoreTheVolumeIsTheDevicesAgain) {
    VolumeController controller(MediaType::MEDIA);
    duck(controller);
    controller.restoreVolume(0);
    ASSERT_TRUE(levelBecomes(8));
    EXPECT_EQ(controller.setVolume(4), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 4);
    EXPECT_EQ(controller.getVolume(), 4);
}

TEST_F(VolumeControllerTest, MutingSetsLevelZeroAndALastLevelOfZeroUnmutesToSeven) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 0);
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.unmute(), 0);
    EXPECT_EQ(controller.mute(), 0);
    EXPECT_EQ(fake::volumesSet(), (std::vector<int>{7, 0}));
}
