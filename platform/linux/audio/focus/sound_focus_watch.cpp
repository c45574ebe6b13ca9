// SPDX-License-Identifier: Apache-2.0
#include "FocusWatches.h"
#include "process/Guard.h"
#include "sound_manager.h"

int sound_manager_add_focus_state_watch_cb(sound_stream_focus_mask_e focus_mask,
                                           sound_stream_focus_state_watch_cb callback, void* user_data, int* id) {
    constexpr int BOTH = SOUND_STREAM_FOCUS_FOR_PLAYBACK | SOUND_STREAM_FOCUS_FOR_RECORDING;
    if (!callback || !id || focus_mask == 0 || (focus_mask & ~BOTH) != 0) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return process::guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        *id = process::shared<audio::FocusWatches>().add(focus_mask, callback, user_data);
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_remove_focus_state_watch_cb(int id) {
    return process::guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        return process::shared<audio::FocusWatches>().remove(id) ? SOUND_MANAGER_ERROR_NONE
                                                                 : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    });
}
