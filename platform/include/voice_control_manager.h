// SPDX-License-Identifier: Apache-2.0
/* Voice-control manager: the recognition session. Main loop only; all callbacks run on the main loop. */
#pragma once

#include "voice_control_common.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum {
    VC_STATE_NONE = 0,
    VC_STATE_INITIALIZED = 1,
    VC_STATE_READY = 2,
} vc_state_e;

typedef enum {
    VC_SERVICE_STATE_NONE = 0,
    VC_SERVICE_STATE_READY = 1,
    VC_SERVICE_STATE_RECORDING = 2,
    VC_SERVICE_STATE_PROCESSING = 3,
} vc_service_state_e;

typedef enum {
    VC_RECOGNITION_MODE_STOP_BY_SILENCE = 0,
    VC_RECOGNITION_MODE_MANUAL = 3, /* only vc_mgr_stop ends the utterance */
} vc_recognition_mode_e;

typedef enum {
    VC_RESULT_EVENT_RESULT_SUCCESS = 0,
    VC_RESULT_EVENT_REJECTED = 1,
} vc_result_event_e;

typedef enum {
    VC_PRE_RESULT_EVENT_FINAL = 0,
    VC_PRE_RESULT_EVENT_PARTIAL = 1,
    VC_PRE_RESULT_EVENT_ERROR = 2,
} vc_pre_result_event_e;

typedef bool (*vc_supported_language_cb)(const char* language, void* user_data); /* false stops the iteration */
typedef void (*vc_state_changed_cb)(vc_state_e previous, vc_state_e current, void* user_data);
typedef void (*vc_mgr_service_state_changed_cb)(vc_service_state_e previous, vc_service_state_e current,
                                                void* user_data);
/* The manager owns the list, which is valid during the call. Return true if this application has carried out the
 * result, so that no other application gets it. */
typedef bool (*vc_mgr_all_result_cb)(vc_result_event_e event, vc_cmd_list_h list, const char* result,
                                     const char* message, void* user_data);
typedef void (*vc_mgr_pre_result_cb)(vc_pre_result_event_e event, const char* text, void* user_data);
typedef void (*vc_error_cb)(vc_error_e reason, void* user_data);
typedef void (*vc_mgr_speech_detected_cb)(void* user_data);
typedef void (*vc_current_language_changed_cb)(const char* previous, const char* current, void* user_data);

/* All functions return vc_error_e. */
int vc_mgr_initialize(void);
int vc_mgr_deinitialize(void);
/* Returns immediately. The state becomes VC_STATE_READY when the engine is ready. */
int vc_mgr_prepare(void);
int vc_mgr_foreach_supported_languages(vc_supported_language_cb callback, void* user_data);

int vc_mgr_set_state_changed_cb(vc_state_changed_cb callback, void* user_data);
int vc_mgr_unset_state_changed_cb(void);
int vc_mgr_set_service_state_changed_cb(vc_mgr_service_state_changed_cb callback, void* user_data);
int vc_mgr_unset_service_state_changed_cb(void);
int vc_mgr_set_all_result_cb(vc_mgr_all_result_cb callback, void* user_data);
int vc_mgr_unset_all_result_cb(void);
int vc_mgr_set_pre_result_cb(vc_mgr_pre_result_cb callback, void* user_data);
int vc_mgr_unset_pre_result_cb(void);
int vc_mgr_set_error_cb(vc_error_cb callback, void* user_data);
int vc_mgr_unset_error_cb(void);
int vc_mgr_set_speech_detected_cb(vc_mgr_speech_detected_cb callback, void* user_data);
int vc_mgr_unset_speech_detected_cb(void);
int vc_mgr_set_current_language_changed_cb(vc_current_language_changed_cb callback, void* user_data);
int vc_mgr_unset_current_language_changed_cb(void);

/* One line that identifies the product to the engine. */
int vc_mgr_set_domain(const char* domain);
int vc_mgr_set_preloaded_commands_from_file(const char* path);
/* "Request": "reloadEngine" or "resetSession". "MediaVolume": the media volume as text, 0 to 15; a higher volume
 * requires louder speech. */
int vc_mgr_set_private_data(const char* key, const char* data);
int vc_mgr_set_recognition_mode(vc_recognition_mode_e mode);
/* The caller keeps ownership of the list, which must exist until it is unset. */
int vc_mgr_set_command_list(vc_cmd_list_h list);
int vc_mgr_unset_command_list(void);

int vc_mgr_start(bool exclusive_command_option);
int vc_mgr_stop(void);
int vc_mgr_cancel(void);
/* Selects the commands that get the result. Call this only in the all-result callback. */
int vc_mgr_set_selected_results(vc_cmd_list_h list);
/* The text of the last error. The caller frees the string with free(). */
int vc_mgr_get_error_message(char** message);

#ifdef __cplusplus
}
#endif
