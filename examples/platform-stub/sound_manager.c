/* SPDX-License-Identifier: Apache-2.0 */
/* There is no sound server. */
#include <sound_manager.h>

int sound_manager_create_stream_information(sound_stream_type_e stream_type,
                                            sound_stream_focus_state_changed_cb callback, void* user_data,
                                            sound_stream_info_h* stream_info) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_destroy_stream_information(sound_stream_info_h stream_info) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_set_focus_reacquisition(sound_stream_info_h stream_info, bool enable) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_get_focus_state(sound_stream_info_h stream_info, sound_stream_focus_state_e* state_for_playback,
                                  sound_stream_focus_state_e* state_for_recording) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_acquire_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask,
                                int sound_behavior, const char* extra_info) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_release_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask,
                                int sound_behavior, const char* extra_info) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_get_current_playback_focus(sound_stream_focus_change_reason_e* acquired_by, int* flags,
                                             char** extra_info) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_add_focus_state_watch_cb(sound_stream_focus_mask_e focus_mask,
                                           sound_stream_focus_state_watch_cb callback, void* user_data, int* id) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_remove_focus_state_watch_cb(int id) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_get_volume(sound_type_e type, int* volume) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_set_volume(sound_type_e type, int volume) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_set_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}

int sound_manager_unset_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    return SOUND_MANAGER_ERROR_INTERNAL;
}
