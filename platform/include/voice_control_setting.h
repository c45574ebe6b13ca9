// SPDX-License-Identifier: Apache-2.0
/* Voice-control settings. Main loop only. All functions return vc_error_e. */
#pragma once

#include "voice_control_common.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*vc_setting_enabled_changed_cb)(bool enabled, void* user_data);

int vc_setting_initialize(void);
int vc_setting_deinitialize(void);
int vc_setting_get_enabled(bool* enabled);
int vc_setting_set_enabled_changed_cb(vc_setting_enabled_changed_cb callback, void* user_data);
/* The caller frees the string with free(). */
int vc_setting_get_language(char** language);
int vc_setting_set_language(const char* language);
/* true: the engine's language follows the platform's. */
int vc_setting_set_auto_language(bool enable);

#ifdef __cplusplus
}
#endif
