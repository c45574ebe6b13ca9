#include "Util/Sound/VolumeController.h"

#include <atomic>

#include "fake/FakeSound.h"
#include "unit/Fixture.h"

using Util::MediaType;
using Util::VolumeController;

class VolumeControllerTest : public PlatformTest {
protected:
    void SetUp() override {
        PlatformTest::SetUp();
        // A player holds the output, so that there is something to duck.
        fake::setPlaybackFocus(SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA);
        fake::setVolumeLevel(SOUND_TYPE_MEDIA, 8);
    }
    static bool levelBecomes(int level) {
        return fake::platform().waitUntil([=] { return fake::volumeLevel(SOUND_TYPE_MEDIA) == level; });
    }
    // Level 8 down to 2; the callback tells the end.
    void duck(VolumeController& controller) {
        controller.setDecreaseCallback([this](void*) { ++ended; }, nullptr);
        ASSERT_EQ(controller.decreaseVolume(0.01), 1);
        ASSERT_TRUE(fake::platform().waitUntil([&] { return ended == 1; }));
        ASSERT_TRUE(levelBecomes(2));
    }
    std::atomic<int> ended{0};
};

TEST_F(VolumeControllerTest, ANewControllerWatchesFirstAndThenReads) {
    { VolumeController controller(MediaType::MEDIA); }
    EXPECT_EQ(fake::platform().texts(), (Texts{"sound_manager_set_volume_changed_cb()", "sound_manager_get_volume(4)",
                                               "sound_manager_unset_volume_changed_cb()"}));
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
        EXPECT_EQ(fake::platform().texts(), Texts{std::string("sound_manager_set_volume(") + row.sound + ", 5)"});
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

TEST_F(VolumeControllerTest, StepsMoveTheLevelByOne) {
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.VolumeUp(), 0);
    EXPECT_EQ(controller.getVolume(), 9);
    EXPECT_EQ(controller.VolumeDown(), 0);
    EXPECT_EQ(controller.getVolume(), 8);
    controller.setVolume(0);
    EXPECT_EQ(controller.VolumeDown(), -1);
    EXPECT_EQ(controller.setVolume(-1), -1);
}

TEST_F(VolumeControllerTest, UnmutingBringsTheLastAudibleLevelBack) {
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.unmute(), -1);
    fake::changeVolume(SOUND_TYPE_MEDIA, 5);
    controller.mute();
    fake::changeVolume(SOUND_TYPE_MEDIA, 0);
    EXPECT_EQ(controller.unmute(), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 5);
}

TEST_F(VolumeControllerTest, UnmutingWithoutALastLevelSetsSeven) {
    fake::platform().answerNext("sound_manager_get_volume", -703);
    VolumeController controller(MediaType::MEDIA);
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 0);
    EXPECT_EQ(controller.unmute(), 0);
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 7);
}

TEST_F(VolumeControllerTest, AChangeOfAnotherTypeReachesNoController) {
    VolumeController controller(MediaType::ALARM);
    VolumeController follower(MediaType::MEDIA);
    controller.addSync(&follower);
    fake::platform().forgetCalls();
    fake::changeVolume(SOUND_TYPE_SYSTEM, 3);
    EXPECT_TRUE(fake::platform().texts().empty());
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(VolumeControllerTest, AFollowerIsSetAtOnceAndAtEachChange) {
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

TEST_F(VolumeControllerTest, AFreeOutputIsNotDucked) {
    fake::setPlaybackFocus(SOUND_STREAM_FOCUS_CHANGED_BY_ALARM);
    VolumeController controller(MediaType::MEDIA);
    EXPECT_EQ(controller.decreaseVolume(0.1), 0);
}

TEST_F(VolumeControllerTest, OtherTypesAreDuckedWithoutAskingWhoPlays) {
    fake::setVolumeLevel(SOUND_TYPE_ALARM, 8);
    VolumeController controller(MediaType::ALARM);
    EXPECT_EQ(controller.decreaseVolume(0.01), 1);
    EXPECT_EQ(fake::platform().count("sound_manager_get_current_playback_focus"), 0u);
}

TEST_F(VolumeControllerTest, FromThreeTheFirstStepIsTheTargetAndTheFadeEndsAtOnce) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 3);
    int datum = 0;
    {
        VolumeController controller(MediaType::MEDIA);
        Texts order;
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

TEST_F(VolumeControllerTest, AFadeStepsDownOneLevelAtATime) {
    fake::setVolumeLevel(SOUND_TYPE_MEDIA, 6);
    {
        VolumeController controller(MediaType::MEDIA);
        controller.decreaseVolume(0.8);
    }
    EXPECT_EQ(fake::volumesSet(), (std::vector<int>{5, 4, 3, 2}));
}

TEST_F(VolumeControllerTest, WhenTheTimeRunsOutTheTargetIsSetAllTheSame) {
    {
        VolumeController controller(MediaType::MEDIA);
        controller.decreaseVolume(0.001);
    }
    EXPECT_EQ(fake::volumesSet().back(), 2);
}

TEST_F(VolumeControllerTest, AChangeByTheUserWhileDuckedIsAppliedByTheRestore) {
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

TEST_F(VolumeControllerTest, WhileDuckedTheDevicesOwnChangesAreNotTheUsers) {
    {
        VolumeController controller(MediaType::MEDIA);
        duck(controller);
        fake::changeVolume(SOUND_TYPE_MEDIA, 4);
        EXPECT_EQ(controller.getVolume(), 8);
        controller.restoreVolume(0.05);
    }
    EXPECT_EQ(fake::volumeLevel(SOUND_TYPE_MEDIA), 8);
}

TEST_F(VolumeControllerTest, ASecondDecreaseStopsTheFirstWhichSetsItsOwnTarget) {
    VolumeController controller(MediaType::MEDIA);
    controller.setDecreaseCallback([this](void*) { ++ended; }, nullptr);
    ASSERT_EQ(controller.decreaseVolume(60), 1);
    ASSERT_TRUE(levelBecomes(7));
    fake::platform().forgetCalls();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(controller.decreaseVolume(0.01), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << "not the minute of the first fade";
    EXPECT_GE(ended, 1);
    EXPECT_TRUE(levelBecomes(2));
}

TEST_F(VolumeControllerTest, ARestoreToTheLevelThatIsThereEndsAtOnce) {
    {
        VolumeController controller(MediaType::MEDIA);
        EXPECT_EQ(controller.restoreVolume(30), 1);
    }
    EXPECT_EQ(fake::volumesSet(), std::vector<int>{8});
}
