// SPDX-License-Identifier: Apache-2.0
// The sound manager's view of who plays.
#include <cstring>

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
