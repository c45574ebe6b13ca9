// SPDX-License-Identifier: Apache-2.0
/* Keys, lights, and display of the appliance. Any thread. All functions return device_error_e. */
#pragma once

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    DISPLAY_STATE_NORMAL = 1,
    DISPLAY_STATE_SCREEN_DIM = 2,
    DISPLAY_STATE_SCREEN_OFF = 3,
} display_state_e;

typedef enum {
    DEVICE_ERROR_NONE = 0,
    DEVICE_ERROR_INVALID_PARAMETER = -22,
    DEVICE_ERROR_NOT_SUPPORTED = -601, /* the appliance does not have this part */
    DEVICE_ERROR_OPERATION_FAILED = -602,
} device_error_e;

/* Switches the light of the microphone key on or off. */
int device_touchkey_set_mic_led(bool on);
int display_change_state(display_state_e state);

#ifdef __cplusplus
}
#endif
