// SPDX-License-Identifier: Apache-2.0
// Waking the display through a desktop's screen saver on a private bus.
#include <device.h>
#include <gtest/gtest.h>

#include <atomic>

#include "dbus/standins/StandInInterfaces.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"

namespace {

// Counts the calls of SimulateUserActivity.
class ScreenSaver {
public:
    ScreenSaver() {
        mObject = mBus.exportObject("/org/freedesktop/ScreenSaver",
                                    dbus::standInInterface("org.freedesktop.ScreenSaver"), [this](auto& call) {
                                        ++activities;
                                        call.reply();
                                    });
        mName = mBus.ownName("org.freedesktop.ScreenSaver");
    }

    std::atomic<int> activities{0};

private:
    gio::Connection mBus = ownConnection(privateBusAddress());
    gio::Registration mObject;
    gio::OwnedName mName;
};

}  // namespace

TEST(TheDisplay, IsWokenThroughTheScreenSaver) {
    const ScreenSaver saver;
    EXPECT_EQ(display_change_state(DISPLAY_STATE_NORMAL), DEVICE_ERROR_NONE);
    EXPECT_EQ(saver.activities, 1);
}

TEST(TheDisplay, CannotBeTurnedOffOnADesktop) {
    const ScreenSaver saver;
    EXPECT_EQ(display_change_state(DISPLAY_STATE_SCREEN_OFF), DEVICE_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(saver.activities, 0);
}
