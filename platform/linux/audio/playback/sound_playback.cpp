// SPDX-License-Identifier: Apache-2.0
#include <cstring>

#include "audio/Playing.h"
#include "process/Guard.h"
#include "sound_manager.h"

// Returns the lowest of several reasons. Media is the lowest, because the product turns down media.
int sound_manager_get_current_playback_focus(sound_stream_focus_change_reason_e* acquired_by, int* flags,
                                             char** extra_info) {
    if (!acquired_by) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return process::guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&]() -> int {
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
    });
}
