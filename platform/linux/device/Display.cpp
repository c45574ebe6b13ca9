// SPDX-License-Identifier: Apache-2.0
// Wakes the display through the desktop's screen saver on the session bus, if one is running.
#include <device.h>

#include "bus/SessionBus.h"
#include "process/Guard.h"

namespace {

constexpr int TIMEOUT_MS = 500;

}  // namespace

extern "C" int display_change_state(display_state_e state) {
    return process::guarded(DEVICE_ERROR_OPERATION_FAILED, __func__, [&]() -> int {
        if (state != DISPLAY_STATE_NORMAL) {
            return DEVICE_ERROR_NOT_SUPPORTED;
        }
        const gio::Target saver{"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                "org.freedesktop.ScreenSaver"};
        try {
            bus::session().call(saver, "SimulateUserActivity", {}, {TIMEOUT_MS, false});
            return DEVICE_ERROR_NONE;
        } catch (const gio::CallError&) {
            return DEVICE_ERROR_NOT_SUPPORTED;
        }
    });
}
