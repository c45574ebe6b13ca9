// SPDX-License-Identifier: Apache-2.0
/* Sound streams, their focus, and the volumes of the sound types. Callbacks run on the sound manager's thread. */
#pragma once

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct sound_stream_info_s* sound_stream_info_h;

typedef enum {
    SOUND_MANAGER_ERROR_NONE = 0,
    SOUND_MANAGER_ERROR_OUT_OF_MEMORY = -12,
    SOUND_MANAGER_ERROR_INVALID_PARAMETER = -22,
    SOUND_MANAGER_ERROR_NO_DATA = -61,
    SOUND_MANAGER_ERROR_INVALID_STATE = -701, /* the stream already has the focus, or does not have it */
    SOUND_MANAGER_ERROR_POLICY = -702,        /* another stream has the focus and keeps it */
    SOUND_MANAGER_ERROR_INTERNAL = -703,      /* the sound server cannot be reached */
} sound_manager_error_e;

typedef enum {
    SOUND_TYPE_SYSTEM = 0,
    SOUND_TYPE_NOTIFICATION = 1,
    SOUND_TYPE_ALARM = 2,
    SOUND_TYPE_MEDIA = 4,
} sound_type_e;

typedef enum {
    SOUND_STREAM_TYPE_MEDIA = 0,
    SOUND_STREAM_TYPE_VOICE_RECOGNITION = 6,
} sound_stream_type_e;

typedef enum {
    SOUND_STREAM_FOCUS_FOR_PLAYBACK = 1,
    SOUND_STREAM_FOCUS_FOR_RECORDING = 2,
} sound_stream_focus_mask_e;

typedef enum {
    SOUND_STREAM_FOCUS_STATE_RELEASED = 0,
    SOUND_STREAM_FOCUS_STATE_ACQUIRED = 1,
} sound_stream_focus_state_e;

typedef enum {
    SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA = 0,
    SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM = 1,
    SOUND_STREAM_FOCUS_CHANGED_BY_ALARM = 2,
    SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION = 3,
    SOUND_STREAM_FOCUS_CHANGED_BY_EMERGENCY = 4,
    SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION = 5,
    SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_RECOGNITION = 6,
    SOUND_STREAM_FOCUS_CHANGED_BY_RINGTONE = 7,
    SOUND_STREAM_FOCUS_CHANGED_BY_VOIP = 8,
    SOUND_STREAM_FOCUS_CHANGED_BY_CALL = 9,
    SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA_EXTERNAL_ONLY = 10,
} sound_stream_focus_change_reason_e;

enum { SOUND_BEHAVIOR_NONE = 0 };

/* The stream's focus changed; the mask says which one. sound_behavior is SOUND_BEHAVIOR_*; extra_info may be null. */
typedef void (*sound_stream_focus_state_changed_cb)(sound_stream_info_h stream_info,
                                                    sound_stream_focus_mask_e focus_mask,
                                                    sound_stream_focus_state_e focus_state,
                                                    sound_stream_focus_change_reason_e reason, int sound_behavior,
                                                    const char* extra_info, void* user_data);
/* The focus of a stream of any application changed. */
typedef void (*sound_stream_focus_state_watch_cb)(int id, sound_stream_focus_mask_e focus_mask,
                                                  sound_stream_focus_state_e focus_state,
                                                  sound_stream_focus_change_reason_e reason, const char* extra_info,
                                                  void* user_data);
typedef void (*sound_manager_volume_changed_cb)(sound_type_e type, unsigned int volume, void* user_data);

/* Any thread, except that destroy, remove, and unset wait for a running callback and so must not be called on the sound
 * manager's thread. All functions return sound_manager_error_e. */

/* The caller frees the handle with sound_manager_destroy_stream_information. */
int sound_manager_create_stream_information(sound_stream_type_e stream_type,
                                            sound_stream_focus_state_changed_cb callback, void* user_data,
                                            sound_stream_info_h* stream_info);
int sound_manager_destroy_stream_information(sound_stream_info_h stream_info);
/* true: a stream that loses the focus to another stream gets it back when that stream releases it. */
int sound_manager_set_focus_reacquisition(sound_stream_info_h stream_info, bool enable);
/* Either output may be null. */
int sound_manager_get_focus_state(sound_stream_info_h stream_info, sound_stream_focus_state_e* state_for_playback,
                                  sound_stream_focus_state_e* state_for_recording);
int sound_manager_acquire_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask,
                                int sound_behavior, const char* extra_info);
int sound_manager_release_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask,
                                int sound_behavior, const char* extra_info);

/* The reason why the holder acquired the playback focus; SOUND_MANAGER_ERROR_NO_DATA if no stream has it. The caller
 * frees extra_info with free(). */
int sound_manager_get_current_playback_focus(sound_stream_focus_change_reason_e* acquired_by, int* flags,
                                             char** extra_info);
int sound_manager_add_focus_state_watch_cb(sound_stream_focus_mask_e focus_mask,
                                           sound_stream_focus_state_watch_cb callback, void* user_data, int* id);
int sound_manager_remove_focus_state_watch_cb(int id);

/* Levels are steps from 0 to the type's maximum. A higher level causes SOUND_MANAGER_ERROR_INVALID_PARAMETER. */
int sound_manager_get_volume(sound_type_e type, int* volume);
int sound_manager_set_volume(sound_type_e type, int volume);
/* Reports changes of every sound type, by this application or any other. If the level is unknown when the callback is
 * set, because the sound server is unavailable, the first known level counts as a change. Several registrations may
 * exist; the pair of callback and user_data identifies one. */
int sound_manager_set_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data);
int sound_manager_unset_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data);

#ifdef __cplusplus
}
#endif
