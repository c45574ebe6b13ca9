// The sound manager's view of who plays.
#include <cstring>

#include "audio/FocusWatches.h"
#include "audio/Playing.h"
#include "sound_manager.h"

// Several may play at once: the lowest reason counts, media before all others, because it is media that is turned down.
int sound_manager_get_current_playback_focus(sound_stream_focus_change_reason_e* acquired_by, int* flags,
                                             char** extra_info) {
    if (!acquired_by) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    const auto playing = audio::whatPlays();
    if (!playing) {
        return SOUND_MANAGER_ERROR_INTERNAL;
    }
    if (playing->empty()) {
        return SOUND_MANAGER_ERROR_NO_DATA;
    }
    *acquired_by = playing->begin()->first;
    if (flags) {
        *flags = 0;
    }
    if (extra_info) {
        *extra_info = strdup(playing->begin()->second.c_str());
    }
    return SOUND_MANAGER_ERROR_NONE;
}

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
