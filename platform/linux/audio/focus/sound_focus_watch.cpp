// SPDX-License-Identifier: Apache-2.0
// Watches of the focus, as the sound manager offers them.
#include "FocusWatches.h"
#include "sound_manager.h"

int sound_manager_add_focus_state_watch_cb(sound_stream_focus_mask_e focus_mask,
                                           sound_stream_focus_state_watch_cb callback, void* user_data, int* id) {
    constexpr int BOTH = SOUND_STREAM_FOCUS_FOR_PLAYBACK | SOUND_STREAM_FOCUS_FOR_RECORDING;
    if (!callback || !id || focus_mask == 0 || (focus_mask & ~BOTH) != 0) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    *id = audio::FocusWatches::get().add(focus_mask, callback, user_data);
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_remove_focus_state_watch_cb(int id) {
    return audio::FocusWatches::get().remove(id) ? SOUND_MANAGER_ERROR_NONE : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
}
