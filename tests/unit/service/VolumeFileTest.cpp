// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <fstream>
#include <limits>
#include <optional>

#include "VolumeLevel.h"
#include "fake/audio/FakeCapture.h"
#include "service/ServiceFixture.h"

namespace {

constexpr char FILE_PATH[] = "/tmp/OrvaneVolume.tmp";

std::optional<int> writtenLevel() {
    std::ifstream file(FILE_PATH, std::ios::binary);
    int level = 0;
    if (!file.read(reinterpret_cast<char*>(&level), sizeof level) || file.peek() != EOF) {
        return {};
    }
    return level;
}

// From now on, each block has samples of this value; otherwise blocks are silent.
void soundAt(short amplitude) {
    fake::platform().onCall("sse_read",
                            [=](const fake::Call&) { fake::queueSamples(std::vector<short>(256, amplitude)); });
}

}  // namespace

class VolumeFileTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        unlink(FILE_PATH);
    }
    void TearDown() override {
        fake::platform().onCall("sse_read", nullptr);
        ServiceTest::TearDown();
    }
    bool refreshesTo(int level) {
        return fake::platform().waitUntil([&] {
            service->refreshVolumeFile();
            return writtenLevel() == level;
        });
    }
};

// The last level belongs to the process, so this needs a new process.
TEST_F(VolumeFileTest, TheFirstLevelIsWrittenAfterTheListenersEvenIfItIsZero) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            soundAt(30934);  // -0.5 dB
            bool early = true;
            std::optional<int> level;
            fake::platform().onCall("vconf_notify_key_changed", [&](const fake::Call& call) {
                if (call.args.at(0) == "db/orvane/setting/voice_wakeup_word") {
                    fake::platform().waitFor("sse_read", 2);
                    early = writtenLevel().has_value();
                }
            });
            fake::platform().onCall("app_manager_is_running", [&](const fake::Call&) { level = writtenLevel(); });
            create();
            _exit(!early && level == 0 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(VolumeFileTest, AnUnchangedLevelIsNotWrittenAgain) {
    create();
    soundAt(4096);
    ASSERT_TRUE(refreshesTo(-18));
    unlink(FILE_PATH);
    service->refreshVolumeFile();
    EXPECT_FALSE(writtenLevel().has_value());
}

TEST_F(VolumeFileTest, SilenceIsWrittenAsTheLowestInteger) {
    create();
    EXPECT_TRUE(refreshesTo(std::numeric_limits<int>::min()));
}

TEST_F(VolumeFileTest, ALevelIsTruncatedTowardZero) {
    EXPECT_EQ(OrvaneDA::wholeLevel(12.9f), 12);
    EXPECT_EQ(OrvaneDA::wholeLevel(-0.5f), 0);
    create();
    soundAt(16384);  // -6.02 dB
    EXPECT_TRUE(refreshesTo(-6));
}

TEST_F(VolumeFileTest, TwoRecordingStatesStartTheTimerOnce) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    fake::serviceState(VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(fake::platform().textsOf({"ecore_timer_add"}),
              (Texts{"ecore_timer_add(0.020000)", "ecore_timer_add(7.000000)", "ecore_timer_add(7.000000)"}));
    EXPECT_EQ(fake::mainLoop().timers(), 2u);
}

TEST_F(VolumeFileTest, AnyOtherStateEndsTheTimer) {
    create();
    for (auto other : {VC_SERVICE_STATE_PROCESSING, VC_SERVICE_STATE_READY, VC_SERVICE_STATE_NONE}) {
        fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
        ASSERT_EQ(fake::mainLoop().interval(0), 0.02);
        fake::serviceState(VC_SERVICE_STATE_RECORDING, other);
        EXPECT_TRUE(fake::mainLoop().timers() == 0 || fake::mainLoop().interval(0) == 30.0) << other;
    }
}

TEST_F(VolumeFileTest, TheTimerWritesFiftyTimesPerSecond) {
    create();
    service->startTimerVolumeSender();
    EXPECT_EQ(fake::mainLoop().interval(0), 0.02);
    for (auto [amplitude, level] : {std::pair{8192, -12}, std::pair{2048, -24}}) {
        soundAt(static_cast<short>(amplitude));
        EXPECT_TRUE(fake::platform().waitUntil([&, level = level] {
            fake::mainLoop().advance(0.02);
            return writtenLevel() == level;
        }));
    }
}

TEST_F(VolumeFileTest, ASecondStartKeepsTheRunningTimer) {
    create();
    service->startTimerVolumeSender();
    service->startTimerVolumeSender();
    EXPECT_EQ(fake::platform().count("ecore_timer_add"), 1u);
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 0u);
}

TEST_F(VolumeFileTest, StoppingWithoutATimerDeletesNothing) {
    create();
    service->stopTimerVolumeSender();
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 0u);
}

TEST_F(VolumeFileTest, AStartAfterAStopCreatesANewTimer) {
    create();
    service->startTimerVolumeSender();
    service->stopTimerVolumeSender();
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
    service->startTimerVolumeSender();
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
}
