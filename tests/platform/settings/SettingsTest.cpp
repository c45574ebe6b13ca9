#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vconf.h>

#include <string>
#include <vector>

#include "support/MainLoop.h"
#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

namespace {

// Another process's write or read, as a person makes it.
bool dconf(const std::string& words) {
    return system(("dconf " + words).c_str()) == 0;
}

std::vector<int> heard;

void hear(keynode_t* node, void* data) {
    heard.push_back(vconf_keynode_get_type(node));
    if (vconf_keynode_get_type(node) == VCONF_TYPE_INT) {
        *static_cast<int*>(data) = vconf_keynode_get_int(node);
    }
}

std::string text(const char* key) {
    char* value = vconf_get_str(key);
    const std::string result = value ? value : "(null)";
    free(value);
    return result;
}

}  // namespace

class SettingsTest : public testing::Test {
protected:
    void SetUp() override {
        heard.clear();
        ASSERT_TRUE(dconf("reset -f /db/"));
    }
};

TEST_F(SettingsTest, AMissingKeyLeavesTheOutputUntouched) {
    int value = -1;
    EXPECT_EQ(vconf_get_int("db/none", &value), -1);
    EXPECT_EQ(vconf_get_bool("db/none", &value), -1);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(vconf_get_str("db/none"), nullptr);
}

TEST_F(SettingsTest, AKeyOfAnotherTypeLeavesTheOutputUntouched) {
    ASSERT_TRUE(dconf("write /db/text \"'seven'\""));
    int value = -1;
    EXPECT_EQ(vconf_get_int("db/text", &value), -1);
    EXPECT_EQ(vconf_get_bool("db/text", &value), -1);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(text("db/text"), "seven");
}

TEST_F(SettingsTest, AWriteIsSeenByTheNextRead) {
    for (int written : {0, 7, -2}) {
        EXPECT_EQ(vconf_set_int("db/int", written), 0);
        int value = -1;
        EXPECT_EQ(vconf_get_int("db/int", &value), 0);
        EXPECT_EQ(value, written);
    }
    EXPECT_EQ(vconf_set_bool("db/bool", 5), 0);
    int value = -1;
    EXPECT_EQ(vconf_get_bool("db/bool", &value), 0);
    EXPECT_EQ(value, 1);
}

TEST_F(SettingsTest, AnotherProcessesWriteIsSeenWithoutTheMainLoop) {
    int value = -1;
    vconf_set_bool("db/response", 0);
    ASSERT_TRUE(dconf("write /db/response true"));
    EXPECT_EQ(vconf_get_bool("db/response", &value), 0);
    EXPECT_EQ(value, 1);
}

TEST_F(SettingsTest, AWriteReachesOtherProcesses) {
    vconf_set_int("db/level", 42);
    ASSERT_TRUE(runMainLoopUntil([] { return dconf("read /db/level | grep -qx 42"); }));
}

TEST_F(SettingsTest, ChangesByOthersAndByUsAreToldOnTheMainLoopUntilTheyAreIgnored) {
    int told = 0;
    ASSERT_EQ(vconf_notify_key_changed("db/watched", hear, &told), 0);
    ASSERT_TRUE(dconf("write /db/watched 5"));
    EXPECT_EQ(told, 0) << "only the main loop tells";
    EXPECT_TRUE(runMainLoopUntil([&] { return told == 5; }));
    vconf_set_int("db/watched", 6);
    EXPECT_TRUE(runMainLoopUntil([&] { return told == 6; }));
    // Posted, but not told yet, when the subscription ends.
    vconf_set_int("db/watched", 7);
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), 0);
    int other = 0;
    vconf_notify_key_changed("db/other", hear, &other);
    vconf_set_int("db/other", 1);
    EXPECT_TRUE(runMainLoopUntil([&] { return other == 1; }));
    EXPECT_EQ(told, 6);
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), -1);
    vconf_ignore_key_changed("db/other", hear);
}

TEST_F(SettingsTest, EachTypeIsToldAsItIs) {
    int told = 0;
    vconf_notify_key_changed("db/typed", hear, &told);
    const std::pair<const char*, int> rows[] = {
        {"\"'x'\"", VCONF_TYPE_STRING}, {"3", VCONF_TYPE_INT}, {"2.5", VCONF_TYPE_DOUBLE}, {"true", VCONF_TYPE_BOOL}};
    for (const auto& [value, type] : rows) {
        ASSERT_TRUE(dconf(std::string("write /db/typed ") + value));
        EXPECT_TRUE(runMainLoopUntil([type = type] { return !heard.empty() && heard.back() == type; })) << value;
    }
    ASSERT_TRUE(dconf("reset /db/typed"));
    EXPECT_TRUE(runMainLoopUntil([] { return heard.back() == 0; })) << "a key without a value has no type";
    vconf_ignore_key_changed("db/typed", hear);
}

TEST_F(SettingsTest, AKeyThatTheStoreCannotHoldIsRefused) {
    for (const char* key : {"", "/db/x", "db//x", "db/x/"}) {
        EXPECT_EQ(vconf_set_int(key, 1), -1) << key;
        EXPECT_EQ(vconf_notify_key_changed(key, hear, nullptr), -1) << key;
    }
}

TEST_F(SettingsTest, TheStoreKnowsWhichStartOfTheMachineItsMemoryIsOf) {
    int value = -1;
    vconf_set_int("memory/x", 3);
    EXPECT_EQ(vconf_get_int("memory/x", &value), 0);
    EXPECT_TRUE(
        runMainLoopUntil([] { return dconf("read /memory/boot-id | grep -q -f /proc/sys/kernel/random/boot_id"); }));
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    PrivateHome home;
    PrivateBus bus;
    // Left from an earlier start of the machine.
    if (!dconf("write /memory/boot-id \"'earlier'\"") || !dconf("write /memory/old 1")) {
        return 1;
    }
    ecore_app_no_system_modules();
    ecore_init();
    int old = -1;
    if (vconf_get_int("memory/old", &old) == 0) {
        fprintf(stderr, "what was in memory outlived a restart\n");
        return 1;
    }
    const int result = RUN_ALL_TESTS();
    ecore_shutdown();
    return result;
}
