/* SPDX-License-Identifier: Apache-2.0 */
/* The appliance has neither a microphone LED nor a display. */
#include <device.h>

int device_touchkey_set_mic_led(bool on) {
    return DEVICE_ERROR_NOT_SUPPORTED;
}

int display_change_state(display_state_e state) {
    return DEVICE_ERROR_NOT_SUPPORTED;
}
