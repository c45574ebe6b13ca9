#include <unistd.h>

#include <fstream>
#include <limits>
#include <optional>

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

}  // namespace

class VolumeFileTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        unlink(FILE_PATH);
    }
};

TEST_F(VolumeFileTest, TheFirstLevelOfAProcessIsWrittenAtItsStart) {
    // The last level is the process's own, so this takes a fresh one.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            create();
            _exit(writtenLevel().has_value() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(VolumeFileTest, AnUnchangedLevelIsNotWrittenAgain) {
    create();
    fake::platform().onCall("sse_read", [](const fake::Call&) { fake::queueSamples(std::vector<short>(256, 4096)); });
    ASSERT_TRUE(fake::platform().waitUntil([&] {
        service->refreshVolumeFile();
        return writtenLevel() == -18;
    }));
    unlink(FILE_PATH);
    service->refreshVolumeFile();
    EXPECT_FALSE(writtenLevel().has_value());
    fake::platform().onCall("sse_read", nullptr);
    // Silence is no number of decibels; the lowest integer stands for it.
    EXPECT_TRUE(fake::platform().waitUntil([&] {
        service->refreshVolumeFile();
        return writtenLevel() == std::numeric_limits<int>::min();
    }));
}

TEST_F(VolumeFileTest, ALevelIsCutTowardsZero) {
    create();
    // -6.02 dB, each block.
    fake::platform().onCall("sse_read", [](const fake::Call&) { fake::queueSamples(std::vector<short>(256, 16384)); });
    EXPECT_TRUE(fake::platform().waitUntil([&] {
        service->refreshVolumeFile();
        return writtenLevel() == -6;
    }));
    fake::platform().onCall("sse_read", nullptr);
}

TEST_F(VolumeFileTest, TwoRecordingReportsStartTheTimerOnceAndAnyOtherStateEndsIt) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    fake::serviceState(VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_RECORDING);
    EXPECT_EQ(fake::platform().textsOf({"ecore_timer_add"}),
              (Texts{"ecore_timer_add(0.020000)", "ecore_timer_add(7.000000)", "ecore_timer_add(7.000000)"}));
    EXPECT_EQ(fake::mainLoop().timers(), 2u);
    fake::serviceState(VC_SERVICE_STATE_RECORDING, VC_SERVICE_STATE_PROCESSING);
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    EXPECT_EQ(fake::mainLoop().interval(0), 30.0);
}

TEST_F(VolumeFileTest, TheTimerWritesFiftyTimesASecondAtMost) {
    create();
    service->startTimerVolumeSender();
    service->startTimerVolumeSender();
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
    unlink(FILE_PATH);
    fake::platform().onCall("sse_read", [](const fake::Call&) { fake::queueSamples(std::vector<short>(256, 8192)); });
    EXPECT_TRUE(fake::platform().waitUntil([] {
        fake::mainLoop().advance(0.02);
        return writtenLevel() == -12;
    }));
    fake::platform().onCall("sse_read", nullptr);
    service->stopTimerVolumeSender();
    service->stopTimerVolumeSender();
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 1u);
    service->startTimerVolumeSender();
    EXPECT_EQ(fake::mainLoop().timers(), 1u);
}
