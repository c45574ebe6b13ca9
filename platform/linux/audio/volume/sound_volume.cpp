// SPDX-License-Identifier: Apache-2.0
#include "Levels.h"
#include "VolumeListeners.h"
#include "process/Guard.h"
#include "sound_manager.h"

using audio::VolumeListeners;
using process::guarded;

int sound_manager_get_volume(sound_type_e type, int* volume) {
    if (!volume || !audio::isSoundType(type)) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        const auto level = audio::readLevel(type);
        if (!level) {
            return SOUND_MANAGER_ERROR_INTERNAL;
        }
        *volume = *level;
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_set_volume(sound_type_e type, int volume) {
    if (!audio::isSoundType(type) || volume < 0 || volume > audio::kHighestLevel) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        return audio::writeLevel(type, volume) ? SOUND_MANAGER_ERROR_NONE : SOUND_MANAGER_ERROR_INTERNAL;
    });
}

int sound_manager_set_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    if (!callback) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        process::shared<VolumeListeners>().add(callback, user_data);
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_unset_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    return guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        return process::shared<VolumeListeners>().remove(callback, user_data) ? SOUND_MANAGER_ERROR_NONE
                                                                              : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    });
}
