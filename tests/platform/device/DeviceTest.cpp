// SPDX-License-Identifier: Apache-2.0
#include <device.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <tzplatform_config.h>

#include <fstream>
#include <string>
#include <thread>

#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

namespace {

namespace fs = std::filesystem;

const std::string beforeMain = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, "voice/data");

// LED class files in a temporary directory.
class TheMicrophoneLed : public testing::Test {
protected:
    TheMicrophoneLed() { setenv("ORVANE_SYSFS_ROOT", mHome.folder().c_str(), 1); }
    ~TheMicrophoneLed() override { unsetenv("ORVANE_SYSFS_ROOT"); }

    fs::path led(const std::string& name) const { return fs::path(mHome.folder()) / "class" / "leds" / name; }
    void add(const std::string& name, int brightest) const {
        fs::create_directories(led(name));
        std::ofstream(led(name) / "max_brightness") << brightest << "\n";
        std::ofstream(led(name) / "brightness") << "unwritten";
    }
    std::string brightness(const std::string& name) const {
        std::string text;
        std::ifstream(led(name) / "brightness") >> text;
        return text;
    }

    PrivateHome mHome;
};

}  // namespace

TEST_F(TheMicrophoneLed, IsNotSupportedOnAMachineWithoutOne) {
    EXPECT_EQ(device_touchkey_set_mic_led(true), DEVICE_ERROR_NOT_SUPPORTED);
    add("input3::capslock", 1);
    EXPECT_EQ(device_touchkey_set_mic_led(true), DEVICE_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(brightness("input3::capslock"), "unwritten");
}

TEST_F(TheMicrophoneLed, IsSetToFullBrightnessAndTurnedOff) {
    add("front:mic", 255);
    EXPECT_EQ(device_touchkey_set_mic_led(true), DEVICE_ERROR_NONE);
    EXPECT_EQ(brightness("front:mic"), "255");
    EXPECT_EQ(device_touchkey_set_mic_led(false), DEVICE_ERROR_NONE);
    EXPECT_EQ(brightness("front:mic"), "0");
}

TEST_F(TheMicrophoneLed, ThatShowsMutingIsOnWhileTheMicrophoneIsOff) {
    add("platform::micmute", 1);
    EXPECT_EQ(device_touchkey_set_mic_led(true), DEVICE_ERROR_NONE);
    EXPECT_EQ(brightness("platform::micmute"), "0");
    EXPECT_EQ(device_touchkey_set_mic_led(false), DEVICE_ERROR_NONE);
    EXPECT_EQ(brightness("platform::micmute"), "1");
}

TEST_F(TheMicrophoneLed, ThatCannotBeWrittenFails) {
    fs::create_directories(led("front:mic") / "brightness");
    EXPECT_EQ(device_touchkey_set_mic_led(true), DEVICE_ERROR_OPERATION_FAILED);
}

TEST(TheDisplay, IsNotSupportedWithoutAScreenSaver) {
    privateBusAddress();
    EXPECT_EQ(display_change_state(DISPLAY_STATE_NORMAL), DEVICE_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(display_change_state(DISPLAY_STATE_SCREEN_OFF), DEVICE_ERROR_NOT_SUPPORTED);
}

TEST(TheDataRoot, IsInTheBuildTreeIfNothingIsInstalledAndIsKnownBeforeMain) {
    EXPECT_EQ(beforeMain, BUILD_DATA_ROOT "/voice/data");
}

TEST(TheDataRoot, IsTheOnlyKnownDirectory) {
    EXPECT_EQ(tzplatform_mkpath(static_cast<tzplatform_variable>(1), "x"), nullptr);
    EXPECT_EQ(tzplatform_mkpath(TZPLATFORM_DATA_ROOT, nullptr), nullptr);
}

TEST(TheDataRoot, ReturnsASeparateTextToEachThread) {
    const char* ours = tzplatform_mkpath(TZPLATFORM_DATA_ROOT, "a");
    std::thread([] { tzplatform_mkpath(TZPLATFORM_DATA_ROOT, "another"); }).join();
    EXPECT_STREQ(ours, BUILD_DATA_ROOT "/a");
}

// Runs separate programs, because a program looks up the root only once.
TEST(TheDataRoot, IsTheConfiguredDirectoryOrTheInstalledOneBesideTheProgram) {
    const std::string self = fs::read_symlink("/proc/self/exe");
    const PrivateHome home;
    const std::string prefix = home.folder();
    EXPECT_EQ(system(("ORVANE_DATA_ROOT=/chosen " + self + " --print-root | grep -qx /chosen/x").c_str()), 0);
    fs::create_directories(prefix + "/bin");
    fs::create_directories(prefix + "/share/orvane-da");
    fs::copy_file(self, prefix + "/bin/program");
    const std::string installed = prefix + "/share/orvane-da/x";
    EXPECT_EQ(system((prefix + "/bin/program --print-root | grep -qx " + installed).c_str()), 0);
}

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--print-root") {
        puts(tzplatform_mkpath(TZPLATFORM_DATA_ROOT, "x"));
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
