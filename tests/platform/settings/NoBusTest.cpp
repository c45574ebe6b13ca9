// SPDX-License-Identifier: Apache-2.0
// Settings without the session bus, which writes and changes need.
#include <gtest/gtest.h>
#include <vconf.h>

#include <cstdlib>
#include <string>

#include "support/PrivateHome.h"

namespace {

void hear(keynode_t*, void*) {}

}  // namespace

TEST(SettingsWithoutABus, AreMissingAndRefuseWritesWithOneLogLine) {
    testing::internal::CaptureStderr();
    int value = -1;
    EXPECT_EQ(vconf_get_int("db/x", &value), -1);
    EXPECT_EQ(vconf_get_bool("db/x", &value), -1);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(vconf_get_str("db/x"), nullptr);
    EXPECT_EQ(vconf_set_int("db/x", 1), -1);
    EXPECT_EQ(vconf_set_bool("db/x", 1), -1);
    EXPECT_EQ(vconf_notify_key_changed("db/x", hear, nullptr), 0);
    EXPECT_EQ(vconf_ignore_key_changed("db/x", hear), 0);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("without a session bus"), std::string::npos) << log;
    EXPECT_EQ(log.find('\n'), log.size() - 1) << log;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const PrivateHome home;
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    return RUN_ALL_TESTS();
}
