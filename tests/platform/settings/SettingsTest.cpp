// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vconf.h>

#include <sstream>
#include <string>
#include <vector>

#include "bus/SessionBus.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

namespace {

// A write or read by another process.
bool dconf(const std::string& words) {
    return system(("dconf " + words).c_str()) == 0;
}

std::vector<int> heard;

void hear(keynode_t* node, void* data) {
    EXPECT_TRUE(eina_main_loop_is());
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

TEST_F(SettingsTest, ChangesByAnyProcessReachTheCallbackOnTheMainLoopUntilTheSubscriptionEnds) {
    int told = 0;
    ASSERT_EQ(vconf_notify_key_changed("db/watched", hear, &told), 0);
    ASSERT_TRUE(dconf("write /db/watched 5"));
    EXPECT_TRUE(runMainLoopUntil([&] { return told == 5; }));
    vconf_set_int("db/watched", 6);
    EXPECT_TRUE(runMainLoopUntil([&] { return told == 6; }));
    // The change is posted, but the callback has not run, when the subscription ends.
    vconf_set_int("db/watched", 7);
    bus::ioThread().run([] {});
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), 0);
    int other = 0;
    vconf_notify_key_changed("db/other", hear, &other);
    vconf_set_int("db/other", 1);
    EXPECT_TRUE(runMainLoopUntil([&] { return other == 1; }));
    EXPECT_EQ(told, 6);
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), -1);
    vconf_ignore_key_changed("db/other", hear);
}

TEST_F(SettingsTest, APairOfKeyAndCallbackIsOneSubscription) {
    int first = 0;
    int second = 0;
    ASSERT_EQ(vconf_notify_key_changed("db/watched", hear, &first), 0);
    ASSERT_EQ(vconf_notify_key_changed("db/watched", hear, &second), 0);
    ASSERT_TRUE(dconf("write /db/watched 5"));
    EXPECT_TRUE(runMainLoopUntil([&] { return second == 5; }));
    EXPECT_EQ(heard.size(), 1U);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), 0);
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", hear), -1);
}

TEST_F(SettingsTest, TheCallbacksOfAKeyRunInTheOrderOfTheirSubscriptions) {
    std::string order;
    const vconf_callback_fn a = [](keynode_t*, void* data) { *static_cast<std::string*>(data) += 'a'; };
    const vconf_callback_fn b = [](keynode_t*, void* data) { *static_cast<std::string*>(data) += 'b'; };
    vconf_notify_key_changed("db/watched", a, &order);
    vconf_notify_key_changed("db/watched", b, &order);
    ASSERT_TRUE(dconf("write /db/watched 1"));
    // dconf reports a change twice if it happens while dconf still sets up its watch.
    EXPECT_TRUE(runMainLoopUntil([&] { return order.size() >= 2; }));
    EXPECT_EQ(order.substr(0, 2), "ab");
    EXPECT_EQ(vconf_ignore_key_changed("db/watched", a), 0);
    order.clear();
    ASSERT_TRUE(dconf("write /db/watched 2"));
    EXPECT_TRUE(runMainLoopUntil([&] { return !order.empty(); }));
    EXPECT_EQ(order.find('a'), std::string::npos) << order;
    vconf_ignore_key_changed("db/watched", b);
}

TEST_F(SettingsTest, AResetOfTheDirectoryByAnotherProcessReachesTheCallback) {
    ASSERT_TRUE(dconf("write /db/folder/watched 1"));
    int told = 0;
    vconf_notify_key_changed("db/folder/watched", hear, &told);
    ASSERT_TRUE(dconf("reset -f /db/folder/"));
    EXPECT_TRUE(runMainLoopUntil([] { return !heard.empty() && heard.back() == 0; }));
    vconf_ignore_key_changed("db/folder/watched", hear);
}

TEST_F(SettingsTest, AChangeOfAnotherKeyDoesNotReachTheCallback) {
    int told = 0;
    int other = 0;
    vconf_notify_key_changed("db/watch", hear, &told);
    vconf_notify_key_changed("db/watched/also", hear, &other);
    ASSERT_TRUE(dconf("write /db/watched/more 1"));
    ASSERT_TRUE(dconf("write /db/watched/also 2"));
    EXPECT_TRUE(runMainLoopUntil([&] { return other == 2; }));
    EXPECT_EQ(heard.size(), 1U);
    vconf_ignore_key_changed("db/watch", hear);
    vconf_ignore_key_changed("db/watched/also", hear);
}

TEST_F(SettingsTest, TheCallbackGetsTheTypeAndTheValue) {
    std::string told;
    const vconf_callback_fn describe = [](keynode_t* node, void* data) {
        std::ostringstream text;
        switch (const int type = vconf_keynode_get_type(node); type) {
            case 40:
                text << type << " " << vconf_keynode_get_str(node);
                break;
            case 41:
                text << type << " " << vconf_keynode_get_int(node);
                break;
            case 42:
                text << type << " " << vconf_keynode_get_dbl(node);
                break;
            case 43:
                text << type << " " << vconf_keynode_get_bool(node);
                break;
            default:
                text << "no value";
        }
        *static_cast<std::string*>(data) = text.str();
    };
    vconf_notify_key_changed("db/typed", describe, &told);
    const std::pair<const char*, const char*> rows[] = {
        {"write /db/typed \"'x'\"", "40 x"},        {"write /db/typed 3", "41 3"},
        {"write /db/typed 2.5", "42 2.5"},          {"write /db/typed true", "43 1"},
        {"write /db/typed false", "43 0"},          {"reset /db/typed", "no value"},
        {"write /db/typed 'uint32 7'", "no value"}, {"write /db/typed \"'end'\"", "40 end"}};
    for (const auto& [command, expected] : rows) {
        ASSERT_TRUE(dconf(command));
        EXPECT_TRUE(runMainLoopUntil([&, want = expected] { return told == want; })) << command << " reports " << told;
        told.clear();
    }
    vconf_ignore_key_changed("db/typed", describe);
}

TEST_F(SettingsTest, AnInvalidKeyIsRefused) {
    for (const char* key : {"", "/db/x", "db//x", "db/x/"}) {
        EXPECT_EQ(vconf_set_int(key, 1), -1) << key;
        EXPECT_EQ(vconf_notify_key_changed(key, hear, nullptr), -1) << key;
    }
}

TEST_F(SettingsTest, TheStoreKeepsTheBootIdOfItsMemoryKeys) {
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
    // From an earlier boot of the machine.
    if (!dconf("write /memory/boot-id \"'earlier'\"") || !dconf("write /memory/old 1")) {
        return 1;
    }
    ecore_app_no_system_modules();
    ecore_init();
    int old = -1;
    if (vconf_get_int("memory/old", &old) == 0) {
        fprintf(stderr, "a memory key still exists after a restart\n");
        return 1;
    }
    // Ecore is not shut down, because its SIGCHLD handler may still run on another thread.
    return RUN_ALL_TESTS();
}
