// SPDX-License-Identifier: Apache-2.0
// The display: the desktop's screen saver on the session bus wakes it, where one runs.
#include <device.h>

#include "gio/GPointer.h"

namespace {

constexpr int TIMEOUT_MS = 500;

}  // namespace

extern "C" int display_change_state(display_state_e state) {
    if (state != DISPLAY_STATE_NORMAL) {
        return DEVICE_ERROR_NOT_SUPPORTED;
    }
    gio::Error error;
    const gio::Object<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.out()));
    if (bus == nullptr) {
        return DEVICE_ERROR_NOT_SUPPORTED;
    }
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    GVariant* answer = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
        "SimulateUserActivity", nullptr, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, TIMEOUT_MS, nullptr, error.out());
    if (answer == nullptr) {
        return DEVICE_ERROR_NOT_SUPPORTED;
    }
    gio::Variant(answer).reset();
    return DEVICE_ERROR_NONE;
}
