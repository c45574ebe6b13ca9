// SPDX-License-Identifier: Apache-2.0
#include "Util/Sound/SoundStreamWatcher.h"

#include <string.h>

#include "Util/Text.h"

namespace Util {

SoundStreamWatcher::SoundStreamWatcher() {
    readPlaybackFocus(Caller::current());
    const int result =
        sound_manager_add_focus_state_watch_cb(SOUND_STREAM_FOCUS_FOR_PLAYBACK, _focus_state_watch_cb, this, &mWatchId);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE("[ERROR] Fail to add focus state watch cb : %d", result);
    }
    vrd_manager_create(&mBriefingDb, "Morning Brief");
}

SoundStreamWatcher::~SoundStreamWatcher() {
    sound_manager_remove_focus_state_watch_cb(mWatchId);
    vrd_manager_destroy(mBriefingDb);
}

void SoundStreamWatcher::readPlaybackFocus(const Caller& caller) {
    sound_stream_focus_change_reason_e acquiredBy = SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA;
    int flags = 0;
    char* extraInfo = nullptr;
    const int result = sound_manager_get_current_playback_focus(&acquiredBy, &flags, &extraInfo);
    const PlatformText owned(extraInfo);
    if (result == SOUND_MANAGER_ERROR_NONE && acquiredBy == SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA) {
        LOGD_FOR(caller, "Some media has focus for playback: %d", flags);
    } else if (result == SOUND_MANAGER_ERROR_NO_DATA || result == SOUND_MANAGER_ERROR_NONE) {
        LOGD_FOR(caller, "No one has media focus for playback!");
        mAvailable = true;
    } else {
        LOGE_FOR(caller, "[ERROR] Fail to get current playback focus : %d", result);
    }
}

void SoundStreamWatcher::_focus_state_watch_cb(int, sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                                               sound_stream_focus_change_reason_e reason, const char*,
                                               void* data) noexcept {
    auto* watcher = static_cast<SoundStreamWatcher*>(data);
    LOGD("Focus state changed!");
    if (mask != SOUND_STREAM_FOCUS_FOR_PLAYBACK || reason != SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA) {
        return;
    }
    LOGD("For Playback By media!");
    if (state == SOUND_STREAM_FOCUS_STATE_RELEASED) {
        LOGD("State Released");
        watcher->mAvailable = true;
    } else if (state == SOUND_STREAM_FOCUS_STATE_ACQUIRED) {
        LOGD("State Acquired");
        watcher->mAvailable = false;
    }
}

bool SoundStreamWatcher::isMorningBriefPlaying() {
    bool found = false;
    std::lock_guard<std::mutex> lock(mBriefingMutex);
    vrd_manager_foreach_table(
        mBriefingDb, "MorningBrief",
        [](const char* field, int kind, const char* value, void* result) noexcept {
            if (strcmp(field, "isMorningBriefPlaying") == 0 && kind == VRD_FIELD_TEXT && value != nullptr &&
                strcmp(value, "Play") == 0) {
                *static_cast<bool*>(result) = true;
            }
            return true;
        },
        &found);
    return found;
}

bool SoundStreamWatcher::isSoundStreamAvailable() {
    if (mBriefingDb != nullptr && isMorningBriefPlaying()) {
        return false;
    }
    return mAvailable;
}

}  // namespace Util
