// SPDX-License-Identifier: Apache-2.0
// The display, woken through a desktop's screen saver on a bus of the tests' own.
#include <device.h>
#include <gio/gio.h>
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

#include "gio/GPointer.h"
#include "gio/IoThread.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"

namespace {

constexpr char kName[] = "org.freedesktop.ScreenSaver";

// Counts how often the user is said to be active. Answers on the IO thread.
class ScreenSaver {
public:
    ScreenSaver() {
        gio::Error fault;
        mBus = ownConnection(privateBusAddress());
        gio::IoThread::get().run([this] { exportInterface(); });
        const gio::Variant owned(g_dbus_connection_call_sync(
            mBus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            g_variant_new("(su)", kName, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, fault.out()));
        if (!owned) {
            throw std::runtime_error(fault.message());
        }
    }
    ~ScreenSaver() { g_dbus_connection_close_sync(mBus.get(), nullptr, nullptr); }
    ScreenSaver(const ScreenSaver&) = delete;
    ScreenSaver& operator=(const ScreenSaver&) = delete;

    std::atomic<int> activities{0};

private:
    void exportInterface() {
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(
            "<node><interface name='org.freedesktop.ScreenSaver'><method "
            "name='SimulateUserActivity'/></interface></node>",
            nullptr);
        static const GDBusInterfaceVTable methods{onActivity, nullptr, nullptr, {}};
        g_dbus_connection_register_object(mBus.get(), "/org/freedesktop/ScreenSaver", node->interfaces[0], &methods,
                                          this, nullptr, nullptr);
        g_dbus_node_info_unref(node);
    }
    static void onActivity(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
                           GDBusMethodInvocation* invocation, gpointer data) noexcept {
        ++static_cast<ScreenSaver*>(data)->activities;
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }

    gio::Object<GDBusConnection> mBus;
};

}  // namespace

TEST(TheDisplay, IsWokenThroughTheScreenSaver) {
    const ScreenSaver saver;
    EXPECT_EQ(display_change_state(DISPLAY_STATE_NORMAL), DEVICE_ERROR_NONE);
    EXPECT_EQ(saver.activities, 1);
}

TEST(TheDisplay, OfADesktopIsNotTurnedOff) {
    const ScreenSaver saver;
    EXPECT_EQ(display_change_state(DISPLAY_STATE_SCREEN_OFF), DEVICE_ERROR_NOT_SUPPORTED);
    EXPECT_EQ(saver.activities, 0);
}
