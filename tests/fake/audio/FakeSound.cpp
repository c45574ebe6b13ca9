// SPDX-License-Identifier: Apache-2.0
#include "fake/audio/FakeSound.h"

#include <string.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct sound_stream_info_s {};

namespace {

struct VolumeWatch {
    sound_manager_volume_changed_cb callback;
    void* userData;
    bool operator==(const VolumeWatch& other) const { return callback == other.callback && userData == other.userData; }
};

std::mutex stateMutex;
sound_stream_info_s stream;
sound_stream_info_s otherStream;
sound_stream_focus_state_changed_cb focusCallback;
void* focusUserData;
sound_stream_focus_state_e focus = SOUND_STREAM_FOCUS_STATE_RELEASED;
sound_stream_focus_change_reason_e playbackReason;
sound_stream_focus_state_watch_cb watchCallback;
void* watchUserData;
std::map<int, int> levels;
std::vector<int> set;
std::vector<VolumeWatch> volumeWatches;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    focus = SOUND_STREAM_FOCUS_STATE_RELEASED;
    levels.clear();
    set.clear();
    volumeWatches.clear();
    focusCallback = nullptr;
    watchCallback = nullptr;
});

}  // namespace

namespace fake {

void setFocus(sound_stream_focus_state_e state) {
    std::lock_guard<std::mutex> lock(stateMutex);
    focus = state;
}

void changeFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                 sound_stream_focus_change_reason_e reason, bool rightStream) {
    setFocus(state);
    sound_stream_focus_state_changed_cb callback = nullptr;
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        callback = focusCallback;
    }
    if (callback != nullptr) {
        callback(rightStream ? &stream : &otherStream, mask, state, reason, 0, nullptr, focusUserData);
    }
}

void setPlaybackFocus(sound_stream_focus_change_reason_e reason) {
    playbackReason = reason;
}

void changePlaybackFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                         sound_stream_focus_change_reason_e reason) {
    watchCallback(5, mask, state, reason, nullptr, watchUserData);
}

void setVolumeLevel(sound_type_e type, int level) {
    std::lock_guard<std::mutex> lock(stateMutex);
    levels[type] = level;
}

void changeVolume(sound_type_e type, int level) {
    setVolumeLevel(type, level);
    std::vector<VolumeWatch> notified;
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        notified = volumeWatches;
    }
    for (const VolumeWatch& watch : notified) {
        watch.callback(type, static_cast<unsigned>(level), watch.userData);
    }
}

int volumeLevel(sound_type_e type) {
    std::lock_guard<std::mutex> lock(stateMutex);
    return levels[type];
}

std::vector<int> volumesSet() {
    std::lock_guard<std::mutex> lock(stateMutex);
    return set;
}

}  // namespace fake

extern "C" {

int sound_manager_create_stream_information(sound_stream_type_e type, sound_stream_focus_state_changed_cb callback,
                                            void* user_data, sound_stream_info_h* info) {
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        focusCallback = callback;
        focusUserData = user_data;
    }
    *info = &stream;
    return platform().call("sound_manager_create_stream_information", {str(static_cast<int>(type))});
}

int sound_manager_destroy_stream_information(sound_stream_info_h) {
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        focusCallback = nullptr;
    }
    return platform().call("sound_manager_destroy_stream_information");
}

int sound_manager_set_focus_reacquisition(sound_stream_info_h, bool enable) {
    return platform().call("sound_manager_set_focus_reacquisition", {str(int{enable})});
}

int sound_manager_get_focus_state(sound_stream_info_h, sound_stream_focus_state_e* playback,
                                  sound_stream_focus_state_e* recording) {
    const int result = platform().call("sound_manager_get_focus_state",
                                       {playback ? "playback" : "null", recording ? "recording" : "null"});
    std::lock_guard<std::mutex> lock(stateMutex);
    if (result == 0 && recording != nullptr) {
        *recording = focus;
    }
    return result;
}

int sound_manager_acquire_focus(sound_stream_info_h, sound_stream_focus_mask_e mask, int behavior, const char* extra) {
    const int result =
        platform().call("sound_manager_acquire_focus", {str(static_cast<int>(mask)), str(behavior), str(extra)});
    if (result == 0) {
        fake::setFocus(SOUND_STREAM_FOCUS_STATE_ACQUIRED);
    }
    return result;
}

int sound_manager_release_focus(sound_stream_info_h, sound_stream_focus_mask_e mask, int behavior, const char* extra) {
    const int result =
        platform().call("sound_manager_release_focus", {str(static_cast<int>(mask)), str(behavior), str(extra)});
    if (result == 0) {
        fake::setFocus(SOUND_STREAM_FOCUS_STATE_RELEASED);
    }
    return result;
}

int sound_manager_get_current_playback_focus(sound_stream_focus_change_reason_e* acquired_by, int* flags,
                                             char** extra) {
    *acquired_by = playbackReason;
    *flags = 3;
    *extra = strdup("extra");
    return platform().call("sound_manager_get_current_playback_focus");
}

int sound_manager_add_focus_state_watch_cb(sound_stream_focus_mask_e mask, sound_stream_focus_state_watch_cb callback,
                                           void* user_data, int* id) {
    const int result = platform().call("sound_manager_add_focus_state_watch_cb", {str(static_cast<int>(mask))});
    watchCallback = callback;
    watchUserData = user_data;
    if (result == 0) {
        *id = 5;
    }
    return result;
}

int sound_manager_remove_focus_state_watch_cb(int id) {
    return platform().call("sound_manager_remove_focus_state_watch_cb", {str(id)});
}

int sound_manager_get_volume(sound_type_e type, int* volume) {
    const int result = platform().call("sound_manager_get_volume", {str(static_cast<int>(type))});
    if (result == 0) {
        *volume = fake::volumeLevel(type);
    }
    return result;
}

int sound_manager_set_volume(sound_type_e type, int volume) {
    const int result = platform().call("sound_manager_set_volume", {str(static_cast<int>(type)), str(volume)});
    std::lock_guard<std::mutex> lock(stateMutex);
    set.push_back(volume);
    if (result == 0) {
        levels[type] = volume;
    }
    return result;
}

int sound_manager_set_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    std::lock_guard<std::mutex> lock(stateMutex);
    volumeWatches.push_back({callback, user_data});
    return platform().call("sound_manager_set_volume_changed_cb");
}

int sound_manager_unset_volume_changed_cb(sound_manager_volume_changed_cb callback, void* user_data) {
    std::lock_guard<std::mutex> lock(stateMutex);
    for (auto it = volumeWatches.begin(); it != volumeWatches.end(); ++it) {
        if (*it == VolumeWatch{callback, user_data}) {
            volumeWatches.erase(it);
            break;
        }
    }
    return platform().call("sound_manager_unset_volume_changed_cb");
}

}  // extern "C"
